// Hands lines to the sink. An exception of the host's does not get past it.
#include "VEXMELKLog.h"

#include <iostream>
#include <utility>

namespace {

int currentLevel = VEXMELKLog::ErrorLevel;
VEXMELKLogSink* installedSink = nullptr;

void Write(const char* tag, const char* area, const CATUnicodeString& text)
{
    const CATUnicodeString line = CATUnicodeString(tag) + area + ": " + text;
    try
    {
        if (installedSink)
            installedSink->Write(line);
        else
            std::cerr << line.ConvertToChar() << std::endl;
    }
    catch (...) // of the host: it must not pass the operation that logs
    {
    }
}

} // namespace

int VEXMELKLog::GetLevel() { return currentLevel; }

void VEXMELKLog::SetLevel(int level) { currentLevel = level; }

void VEXMELKLog::Trace(const char* area, const CATUnicodeString& text)
{
    if (IsTracing())
        Write("(TT) ", area, text);
}

void VEXMELKLog::Error(const char* area, const CATUnicodeString& text)
{
    if (currentLevel <= ErrorLevel)
        Write("(EE) ", area, text);
}

VEXMELKLogSink* VEXMELKLog::InstallSink(VEXMELKLogSink* sink) { return std::exchange(installedSink, sink); }
