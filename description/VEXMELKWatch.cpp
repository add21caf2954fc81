// The installed watch.
#include "VEXMELKWatch.h"

#include <utility>

VEXMELKWatch* VEXMELKWatch::m_Installed = nullptr;

VEXMELKWatch* VEXMELKWatch::Install(VEXMELKWatch* watch) { return std::exchange(m_Installed, watch); }
