// The installed watches.
#include "VEXMELKWatch.h"

#include <utility>

namespace {

constinit thread_local VEXMELKWatch* watchOfThread = nullptr;

} // namespace

constinit std::atomic<int> VEXMELKWatch::m_Count = 0;

VEXMELKWatch* VEXMELKWatch::OfThread() { return watchOfThread; }

VEXMELKWatch* VEXMELKWatch::Install(VEXMELKWatch* watch)
{
    VEXMELKWatch* before = std::exchange(watchOfThread, watch);
    m_Count += (watch ? 1 : 0) - (before ? 1 : 0);
    return before;
}
