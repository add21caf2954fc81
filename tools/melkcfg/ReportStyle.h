// The look of a report and what its page can do.
#ifndef MELKCFG_ReportStyle_H
#define MELKCFG_ReportStyle_H

#include <string>
#include <string_view>

std::string ReportStyle();
std::string_view ReportScript();

#endif
