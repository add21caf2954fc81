// What the functions that draw a configuration work with: the answers of a directory, and a drawing for one layer of
// it. Each of them asks the operations that a check asks, and lays their values out.
#ifndef VEXMELKSheet_H
#define VEXMELKSheet_H

#include "CATBaseUnknown.h"
#include "CATUnicodeString.h"
#include "VEXMELKConfig.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKDescription.h"
#include "VEXMELKDrawing.h"
#include "VEXMELKTrial.h"

#include <map>

// The configurations over a directory. Documents are read once; each object is fresh all the same, because some keep
// what an earlier query read.
class VEXMELKPictureSource
{
public:
    explicit VEXMELKPictureSource(VEXMELKSource source) : m_Source(std::move(source)) {}
    const VEXMELKSource& Source() const { return m_Source; }

    CATHandle<VEXMELKConfig> NewObject(const VEXMELKConfigManager::Configuration& configuration);
    template <class Config> CATHandle<Config> New()
    {
        const CATHandle<VEXMELKConfig> object = NewObject(Entry(Config::description));
        return CATHandle<Config>(static_cast<Config*>(object.Get()));
    }

private:
    static const VEXMELKConfigManager::Configuration& Entry(const VEXMELKDescription& description);

    VEXMELKSource m_Source;
    std::map<const VEXMELKDescription*, CATHandle<VEXMELKConfig>> m_Loaded;
};

// The vehicle that pictures are drawn around: the base data of the category where there are any, else a usual car.
// Millimetres; X to the rear from the front axle, Y to the right from the middle, Z up from the road.
struct VEXMELKVehicle
{
    double front = -900.0; // where the vehicle begins and ends
    double rear = 3700.0;
    double width = 1800.0;
    double frontRadius = 305.0; // of the wheels, loaded: the height of their centres
    double rearRadius = 305.0;
    double rearAxle = 2700.0;
    double height = 1450.0;
    double seatX = 1350.0; // the driver's reference point
    double seatY = -370.0;
    double seatZ = 560.0;
    double backAngle = 25.0;
    double hPointTravel = 240.0;

    VEXMELKVehicle() = default;
    VEXMELKVehicle(VEXMELKPictureSource& source, const CATUnicodeString& category);

    VEXMELKSpot Eye() const { return {seatX + 30.0, seatZ + 635.0}; } // in side view; about where a driver's eyes are
    // Drawn for nobody.
    void DrawSide(const VEXMELKPen& pen) const;
    void DrawPlan(const VEXMELKPen& pen) const;
    void DrawAcross(const VEXMELKPen& pen) const; // from the front or the rear
};

struct VEXMELKSheet
{
    VEXMELKDrawing& drawing;
    VEXMELKLayer layer;
    VEXMELKPictureSource& source;
    CATUnicodeString standard;
    CATUnicodeString category;
    const VEXMELKVehicle& vehicle;

    // The panel of that title, made when it is the first of it.
    VEXMELKPen On(const std::string& title, const std::string& xAxis, const std::string& yAxis,
        const std::string& unit = "mm") const;
    // With the vehicle around it. Panels of one view have the same axes.
    VEXMELKPen SideView(const std::string& title = "Side view") const;
    VEXMELKPen SideDetail(const std::string& title) const;
    VEXMELKPen PlanView(const std::string& title = "Plan view") const;
    VEXMELKPen FrontView(const std::string& title = "Seen from the front") const;
    VEXMELKPen RearView(const std::string& title = "Seen from the rear") const;

    // Values of texts that were handed out. A text that is there but is none of these is told of below the picture.
    VEXMELKMeasure Length(const std::string& field, const CATUnicodeString& text) const;
    VEXMELKMeasure Angle(const std::string& field, const CATUnicodeString& text) const;
    VEXMELKMeasure Number(const std::string& field, const CATUnicodeString& text, const std::string& unit = {}) const;
    // Values that were handed out as numbers: millimetres, degrees, percent.
    VEXMELKMeasure Given(const std::string& field, double number, const std::string& unit = "mm") const;
    // A line below the picture.
    void Note(const std::string& text) const;
    // "field: text", when there is one.
    void NoteText(const std::string& field, const CATUnicodeString& text) const;

    template <class Config> CATHandle<Config> New() const { return source.New<Config>(); }
};

inline std::string VEXMELKPlain(const CATUnicodeString& text) { return text.ConvertToChar(); }
double VEXMELKDegrees(double radians);

// The names that an argument of an operation may have for the sheet's standard and category, as the files have them.
std::vector<CATUnicodeString> VEXMELKChoicesFor(const VEXMELKSheet& sheet, const VEXMELKDescription& description,
    std::string_view operation, std::string_view argument);

using VEXMELKDraw = void (*)(const VEXMELKSheet& sheet);

// By the family of their configurations: each draws one.
struct VEXMELKDrawer
{
    std::string_view configuration;
    VEXMELKDraw draw;
};
std::span<const VEXMELKDrawer> VEXMELKOccupantDrawers();
std::span<const VEXMELKDrawer> VEXMELKVisionDrawers();
std::span<const VEXMELKDrawer> VEXMELKUnderfloorDrawers();
std::span<const VEXMELKDrawer> VEXMELKExteriorDrawers();
std::span<const VEXMELKDrawer> VEXMELKSafetyDrawers();

#endif
