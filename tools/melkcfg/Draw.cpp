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

bool IsPng(const std::string& name) { return name.ends_with(".png") || name.ends_with(".PNG"); }

ExitStatus RunDraw(const CommandOptions& options, const std::string& output, const Host& host)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    const bool isSvg = output.empty() || output == "-" || output.ends_with(".svg");
    if (!isSvg && !IsPng(output))
        throw RequestError("the name of the picture has to end in .svg or .png, got " + Shown(output));
    const CATUnicodeString directory = CurrentDirectory();
    VEXMELKPictures pictures(directory);
    const VEXMELKDrawing drawn =
        pictures.Draw(*configuration.entry, CATUnicodeString(options.standard), CATUnicodeString(options.category));
    VEXMELKLoadFiles(*configuration.entry->description, directory); // tells what is wrong with the files
    const ExitStatus status = StatusOf(configuration, host, drawn.panels.empty());
    if (status == NotDone || status == NothingThere)
        return status;
    if (drawn.panels.empty())
    {
        std::cerr << configuration.name << " has nothing to draw for the standard " << Shown(options.standard)
                  << " and the category " << Shown(options.category) << '\n';
        return status;
    }
    const std::string svg = VEXMELKSvgText(drawn, VEXMELKSvgUse::File);
    WriteOutput(output, isSvg ? svg : PngOf(svg));
    return status;
}

} // namespace

void AddDrawCommands(CommandLine& line)
{
    CommandOptions& options = line.options;
    const auto output = std::make_shared<std::string>();
    CLI::App* draw = line.Add("draw", "A picture of what a standard says, to scale",
        [&options, output](const Host& host) { return RunDraw(options, *output, host); }, {"text"});
    draw->add_option("CONFIG", options.configuration, "The configuration")->required();
    draw->add_option("STANDARD", options.standard, "The standard; any text for one without standards")->required();
    draw->add_option("CATEGORY", options.category, "The vehicle category")->capture_default_str();
    draw->add_option("-o,--output", *output, "FILE.svg or FILE.png; SVG on standard output without it");
}
