// Marks what the library exports; everything else in it is hidden. A class within an exported one is exported too,
// unless it is marked as hidden.
#ifndef VEXMELKConfigurationExport_H
#define VEXMELKConfigurationExport_H

#ifdef VEXMELKConfiguration_STATIC // of the static library: whoever links to it says so
#define ExportedByVEXMELKConfiguration
#define HiddenInVEXMELKConfiguration
#elif defined(_WIN32)
#ifdef VEXMELKConfiguration_EXPORTS
#define ExportedByVEXMELKConfiguration __declspec(dllexport)
#else
#define ExportedByVEXMELKConfiguration __declspec(dllimport)
#endif
#define HiddenInVEXMELKConfiguration
#else
#define ExportedByVEXMELKConfiguration __attribute__((visibility("default")))
#define HiddenInVEXMELKConfiguration __attribute__((visibility("hidden")))
#endif

#endif
