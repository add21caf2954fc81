// What the application knows besides the configuration: its mode, the reload request, the decimal separator, files,
// message texts, quantities and the colour palette. A host sets it up through the Set... operations; Reset gives the
// state of a fresh process back. The settings are those of the whole process, and any thread may read or change them
// at any time.
#ifndef VEXMELKUtilities_H
#define VEXMELKUtilities_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

enum VEXMELKAppMode : int
{
    VEXMELKNormalMode = 0,
    VEXMELKTestMode = 1
};

class ExportedByVEXMELKConfiguration VEXMELKUtilities
{
public:
    static VEXMELKAppMode GetAppMode();
    static void SetAppMode(VEXMELKAppMode mode);

    // A request to reload the configuration, seen at the next request for its manager. It is made to all threads, and
    // each thread has it pending until it has carried it out: a thread that has not asked for a manager since the last
    // request was made has one pending. Clearing the flag withdraws the request for the calling thread.
    static unsigned char GetReloadConfigurationFlag();
    static void SetReloadConfigurationFlag(unsigned char reload);

    // Whether the application writes numbers with a decimal comma.
    static unsigned char IsCommaDelimeter();
    static void SetCommaDelimeter(unsigned char comma);

    // Turns every "," into ".", the separator that conversions expect, whatever the application writes.
    static void AlterStringBecauseOfDelimeter(CATUnicodeString& text);

    // False only for what certainly is no file: no such name, or a folder, a pipe, a device of that name. True for a
    // file, and where it cannot be told: the folder may not be searched, or a link leads nowhere or in a circle.
    static unsigned char FileExists(const CATUnicodeString& path);

    // The text of a message, from the file that MELK_MSG_CATALOG names (lines of KEY = "text"), or else from the
    // built-in catalogue; a key without a text gives the key itself.
    static CATUnicodeString GetNLSMessage(const CATString& key);

    // Lengths in metres, angles in radians; 0 for a text that is no quantity. A bare number counts as millimetres or
    // degrees.
    static double GetValueInMeters(const CATUnicodeString& text);
    static double GetValueInRadians(const CATUnicodeString& text);

    // The palette of sixteen VGA colours, as 0xRRGGBB. A position counts from 0. A name is matched in any letter
    // case; an unknown one is black.
    static int GetNumberOfVGAColors();
    static unsigned int VGAColor(int position);
    static unsigned int VGAColor(const CATUnicodeString& name);
    // The name of the colour at the position; empty when there is none.
    static CATUnicodeString GetVGAColorName(int position);
    // The palette colour nearest to a colour in RGB, the first of several.
    static unsigned int ConvertColorToVGAColor(unsigned int color);
    // "#RRGGBB".
    static CATUnicodeString ConvertColorToColorString(unsigned int color);

    // A pending reload is withdrawn for the calling thread.
    static void Reset();
};

#endif
