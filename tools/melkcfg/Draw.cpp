// draw: one picture, as SVG or PNG by the name of the file. The drawing is the library's (VEXMELKPictures.h).
#include "CommandLine.h"
#include "Explain.h"
#include "Output.h"
#include "Png.h"
#include "Table.h"
#include "VEXMELKPictures.h"
#include "VEXMELKSvg.h"

#include <iostream>

namespace {

struct DrawOptions
{
    std::string category = "default";
    std::string output;
};

bool IsPng(const std::string& name)
{
    return name.ends_with(".png") || name.ends_with(".PNG");
}

ExitStatus RunDraw(const CommandOptions& options, const DrawOptions& drawing, const Host& host)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    const bool isSvg = drawing.output.empty() || drawing.output == "-" || drawing.output.ends_with(".svg");
    if (!isSvg && !IsPng(drawing.output))
        throw RequestError("the name of the picture has to end in .svg or .png, got " + Shown(drawing.output));
    const CATUnicodeString directory = CurrentDirectory();
    VEXMELKPictures pictures(directory);
    const VEXMELKDrawing drawn =
        pictures.Draw(*configuration.entry, CATUnicodeString(options.standard), CATUnicodeString(drawing.category));
    if (VEXMELKLoadFiles(*configuration.entry->description, directory).empty())
    {
        std::cerr << "there is no file of " << configuration.name << " that can be read\n";
        return host.HasErrors() ? NotDone : NothingThere;
    }
    if (drawn.panels.empty())
    {
        std::cerr << configuration.name << " has nothing to draw for the standard " << Shown(options.standard)
                  << " and the category " << Shown(drawing.category) << '\n';
        return AnsweredFalse;
    }
    const std::string svg = VEXMELKSvgText(drawn, VEXMELKSvgUse::File);
    WriteOutput(drawing.output, isSvg ? svg : PngOf(svg));
    return Done;
}

} // namespace

void AddDrawCommands(CommandLine& line)
{
    CommandOptions& options = line.options;
    const auto drawing = std::make_shared<DrawOptions>();
    CLI::App* draw = line.Add(
        "draw", "A picture of what a standard says, to scale",
        [&options, drawing](const Host& host) { return RunDraw(options, *drawing, host); }, {"text"});
    draw->add_option("CONFIG", options.configuration, "The configuration")->required();
    draw->add_option("STANDARD", options.standard, "The standard; any text for one without standards")->required();
    draw->add_option("CATEGORY", drawing->category, "The vehicle category")->capture_default_str();
    draw->add_option("-o,--output", drawing->output, "FILE.svg or FILE.png; SVG on standard output without it");
}
