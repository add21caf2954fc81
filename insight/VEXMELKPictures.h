// Pictures of what configurations describe: the answers of a standard for a category, drawn to scale.
#ifndef VEXMELKPictures_H
#define VEXMELKPictures_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKDrawing.h"

#include <memory>

class VEXMELKPictureSource;
struct VEXMELKDescription;

// Whether there is anything to draw for a configuration: it describes geometry.
bool VEXMELKIsDrawn(const VEXMELKDescription& description);

// Draws the configurations of a directory. What the Default files say is one layer and what counts with the Customer
// files another; where the two say the same there is one.
class VEXMELKPictures
{
public:
    explicit VEXMELKPictures(const CATUnicodeString& directory);
    VEXMELKPictures(const VEXMELKPictures&) = delete;
    VEXMELKPictures& operator=(const VEXMELKPictures&) = delete;
    ~VEXMELKPictures();

    // Without panels when the files have no such geometry. Base data have no standards: the name plays no part there.
    VEXMELKDrawing Draw(const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& standard,
        const CATUnicodeString& category);

private:
    std::unique_ptr<VEXMELKPictureSource> m_Default;
    std::unique_ptr<VEXMELKPictureSource> m_Effective;
};

#endif
