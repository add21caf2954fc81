// The application's log. Each line begins with the tag of its level, "(TT) " for trace and "(EE) " for errors, and
// goes to the sink that the host installed, or else to standard error.
//
// Any thread may read or change the level. The sink is called by the thread whose query logs, so by several at once
// when several threads ask.
#ifndef VEXMELKLog_H
#define VEXMELKLog_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

class VEXMELKLogSink
{
public:
    virtual ~VEXMELKLogSink() = default;
    // "line" comes without a line end.
    virtual void Write(const CATUnicodeString& line) = 0;
};

class ExportedByVEXMELKConfiguration VEXMELKLog
{
public:
    enum Level
    {
        TraceLevel = 0,
        ErrorLevel = 3
    };
    // The level below which lines are not written; ErrorLevel at start.
    static int GetLevel();
    static void SetLevel(int level);
    static bool IsTracing() { return GetLevel() < 1; }

    // Write "AREA: TEXT" behind the level's tag: traces at levels below 1, errors at levels up to 3.
    static void Trace(const char* area, const CATUnicodeString& text);
    static void Error(const char* area, const CATUnicodeString& text);

    // Installs the sink, null for none, and returns the one before. The caller keeps ownership; a query of another
    // thread that runs meanwhile may still write to the one before.
    static VEXMELKLogSink* InstallSink(VEXMELKLogSink* sink);
};

#endif
