// Hands lines to the sink. An exception of the host's does not get past it.
#include "VEXMELKLog.h"

#include <atomic>
#include <iostream>
#include <utility>

namespace {

std::atomic<int> currentLevel = VEXMELKLog::ErrorLevel;
std::atomic<VEXMELKLogSink*> installedSink = nullptr;

void Write(const char* tag, const char* area, const CATUnicodeString& text)
{
    const CATUnicodeString line = CATUnicodeString(tag) + area + ": " + text;
    try
    {
        if (VEXMELKLogSink* sink = installedSink)
            sink->Write(line);
        else
            std::cerr << (line + "\n").ConvertToChar() << std::flush; // in one piece, whichever threads write
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

VEXMELKLogSink* VEXMELKLog::InstallSink(VEXMELKLogSink* sink) { return installedSink.exchange(sink); }
