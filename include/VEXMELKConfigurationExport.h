// Marks what the library exports; everything else in it is hidden.
#ifndef VEXMELKConfigurationExport_H
#define VEXMELKConfigurationExport_H

#ifdef _MSC_VER
#ifdef VEXMELKConfiguration_EXPORTS
#define ExportedByVEXMELKConfiguration __declspec(dllexport)
#else
#define ExportedByVEXMELKConfiguration __declspec(dllimport)
#endif
#else
#define ExportedByVEXMELKConfiguration __attribute__((visibility("default")))
#endif

#endif
