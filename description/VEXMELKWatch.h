// Watching look-ups: which elements were looked for and which attributes were read, as the descriptions name them.
//
// While a watch is installed, it is told of each look-up that a reader makes. Without one a look-up costs a branch that
// is not taken.
#ifndef VEXMELKWatch_H
#define VEXMELKWatch_H

#include "CATIDOM.h"
#include "VEXMELKConfigurationExport.h"
#include "VEXMELKRow.h"

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

    // Installs a watch, or null, and returns the one before. The caller keeps ownership.
    static VEXMELKWatch* Install(VEXMELKWatch* watch);
    static VEXMELKWatch* Installed() { return m_Installed; }

private:
    static VEXMELKWatch* m_Installed;
};

#endif
