// A report as a page.
#ifndef MELKCFG_ReportPage_H
#define MELKCFG_ReportPage_H

#include "VEXMELKReportData.h"

// Everything about a directory, its files with their digests and what check says among it. Throws RequestError when the
// tool was built without digests, and for a SOURCE_DATE_EPOCH that is no date.
std::string ReportPageOn(const CATUnicodeString& directory, std::vector<VEXMELKReportConfiguration> configurations);

#endif
