// Chooses what draws a configuration, and which layers there are.
#include "VEXMELKPictures.h"

#include "VEXMELKSheet.h"

#include <algorithm>

namespace {

VEXMELKDraw DrawerOf(const VEXMELKDescription& description)
{
    for (const auto& family : {VEXMELKOccupantDrawers(), VEXMELKVisionDrawers(), VEXMELKUnderfloorDrawers(),
             VEXMELKExteriorDrawers(), VEXMELKSafetyDrawers()})
        for (const VEXMELKDrawer& drawer : family)
            if (drawer.configuration == description.name)
                return drawer.draw;
    return nullptr;
}

// What a layer is made of, without whose it is: two layers that show the same are one.
std::vector<VEXMELKShape> ShapesOf(const VEXMELKDrawing& drawing)
{
    std::vector<VEXMELKShape> shapes;
    for (const VEXMELKPanel& panel : drawing.panels)
        for (VEXMELKShape shape : panel.shapes)
            if (shape.layer != VEXMELKLayer::Surroundings)
            {
                shape.layer = VEXMELKLayer::Default;
                shape.label += "\n" + panel.title; // the same shape elsewhere is another one
                shapes.push_back(std::move(shape));
            }
    for (const VEXMELKDrawingNote& note : drawing.notes)
    {
        VEXMELKShape text;
        text.label = note.text;
        shapes.push_back(std::move(text));
    }
    return shapes;
}

void DropEmptyPanels(VEXMELKDrawing& drawing)
{
    std::erase_if(drawing.panels,
        [](const VEXMELKPanel& panel)
        {
            return std::all_of(panel.shapes.begin(), panel.shapes.end(),
                [](const VEXMELKShape& shape) { return shape.layer == VEXMELKLayer::Surroundings; });
        });
}

} // namespace

bool VEXMELKIsDrawn(const VEXMELKDescription& description) { return DrawerOf(description) != nullptr; }

VEXMELKPictures::VEXMELKPictures(const CATUnicodeString& directory)
    : m_Default(std::make_unique<VEXMELKPictureSource>(VEXMELKSource(directory, true))),
      m_Effective(std::make_unique<VEXMELKPictureSource>(directory))
{
}

VEXMELKPictures::~VEXMELKPictures() = default;

VEXMELKDrawing VEXMELKPictures::Draw(const VEXMELKConfigManager::Configuration& configuration,
    const CATUnicodeString& standard, const CATUnicodeString& category)
{
    VEXMELKDrawing drawing;
    drawing.title = std::string(configuration.description->name) +
                    (VEXMELKPlain(standard).empty() ? "" : " · " + VEXMELKPlain(standard)) + " · " +
                    VEXMELKPlain(category);
    const VEXMELKDraw draw = DrawerOf(*configuration.description);
    if (!draw || !configuration.create)
        return drawing;
    const VEXMELKSilence silence;
    const VEXMELKVehicle vehicle(*m_Effective, category);
    const auto drawn = [&](VEXMELKLayer layer, VEXMELKPictureSource& source)
    {
        VEXMELKDrawing made = drawing;
        draw({made, layer, source, standard, category, vehicle});
        DropEmptyPanels(made);
        return made;
    };
    VEXMELKDrawing effective = drawn(VEXMELKLayer::Customer, *m_Effective);
    VEXMELKDrawing byDefault = drawn(VEXMELKLayer::Default, *m_Default);
    if (byDefault.panels.empty())
        return effective;
    if (ShapesOf(effective) == ShapesOf(byDefault))
        return byDefault;
    VEXMELKDrawing both = std::move(byDefault);
    draw({both, VEXMELKLayer::Customer, *m_Effective, standard, category, vehicle});
    DropEmptyPanels(both);
    return both;
}
