// Watching look-ups: which elements were looked for and which attributes were read, as the descriptions name them.
//
// While a thread has a watch installed, it is told of each look-up that a reader makes in that thread. Where no thread
// has one, a look-up costs a branch that is not taken.
#ifndef VEXMELKWatch_H
#define VEXMELKWatch_H

#include "CATIDOM.h"
#include "VEXMELKConfigurationExport.h"
#include "VEXMELKRow.h"

#include <atomic>

struct VEXMELKElement;

class ExportedByVEXMELKConfiguration VEXMELKWatch
{
public:
    virtual ~VEXMELKWatch() = default;
    // Elements were looked for below the parent, which is not null.
    virtual void OnElements(const CATIDOMElement_var& parent, const VEXMELKElement& described) = 0;
    // The attributes of these rows were looked for, in "map" before "defaultMap"; either may be null.
    virtual void OnRows(
        const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows rows) = 0;

    // Installs a watch of the calling thread, or null, and returns the one before. The caller keeps ownership.
    static VEXMELKWatch* Install(VEXMELKWatch* watch);
    static VEXMELKWatch* Installed() { return m_Count.load(std::memory_order_relaxed) == 0 ? nullptr : OfThread(); }

private:
    static VEXMELKWatch* OfThread();
    static std::atomic<int> m_Count; // of the watches that are installed, in all threads
};

#endif
