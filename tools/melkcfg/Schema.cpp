// melkcfg schema: what the descriptions say of each file, for people, for validators and for other programs.
#include "CommandLine.h"
#include "DescriptionJson.h"
#include "Editors.h"
#include "Explain.h"
#include "Table.h"
#include "VEXMELKFormatTable.h"
#include "VEXMELKRelaxNG.h"
#include "VEXMELKTrial.h"
#include "VEXMELKXmlSchema.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

namespace {

namespace fs = std::filesystem;

struct SchemaOptions
{
    bool asRelaxNG = false;
    bool asCompact = false;
    bool asXmlSchema = false;
    bool asJson = false;
    bool asMarkdown = false;
    std::string output;  // a folder for all schemas
    std::string editors; // a folder for all that editors need

    // Of a schema for validators; empty for anything else.
    std::string Extension() const { return asRelaxNG ? "rng" : asCompact ? "rnc" : asXmlSchema ? "xsd" : ""; }
};

// The names that roots and other free tags have in use, when there is a directory.
VEXMELKFreeTags FreeTagsOf(const VEXMELKGrammar& grammar)
{
    const VEXMELKSilence silence; // files that cannot be read name nothing
    return VEXMELKFreeTagsOf(grammar, CurrentDirectory());
}

std::string SchemaOf(const VEXMELKDescription& description, const std::string& extension)
{
    const VEXMELKGrammar grammar(description);
    if (extension == "xsd")
        return VEXMELKXmlSchema(grammar, FreeTagsOf(grammar));
    return extension == "rng" ? VEXMELKRelaxNG(grammar) : VEXMELKRelaxNGCompact(grammar);
}

// All, or the one that is named.
std::vector<const VEXMELKDescription*> DescriptionsOf(const std::string& name)
{
    if (!name.empty())
        return {FindConfiguration(name).entry->description};
    std::vector<const VEXMELKDescription*> descriptions;
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
        descriptions.push_back(configuration.description);
    return descriptions;
}

// "OVA/UFCurb" of "OVA\UFCurb.xml"; empty when its creator names the file.
std::string StemOf(const VEXMELKDescription& description)
{
    return fs::path(VEXMELKFileOf(description)).replace_extension().generic_string();
}

void WriteFile(const fs::path& path, const std::string& text)
{
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    std::ofstream stream(path, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream)
        throw RequestError(path.string() + " cannot be written");
}

// One file for each configuration that has one; gives their stems.
std::vector<std::string> WriteSchemas(
    const std::string& folder, const std::string& name, const std::vector<std::string>& extensions)
{
    std::vector<std::string> stems;
    for (const VEXMELKDescription* description : DescriptionsOf(name))
    {
        const std::string stem = StemOf(*description);
        if (stem.empty())
            continue;
        for (const std::string& extension : extensions)
            WriteFile(fs::path(folder) / (stem + "." + extension), SchemaOf(*description, extension));
        stems.push_back(stem);
    }
    return stems;
}

ExitStatus WriteForEditors(const std::string& folder)
{
    RequireOwnSettings(folder);
    const std::vector<std::string> stems = WriteSchemas(folder, "", {"xsd", "rnc"});
    for (const auto& [file, text] : EditorFiles(folder, stems))
        WriteFile(fs::path(folder) / file, text);
    std::cerr << "schemas of " << stems.size() << " files written to " << folder << std::endl;
    return Done;
}

ExitStatus WriteAll(const SchemaOptions& options, const std::string& name)
{
    const std::string extension = options.Extension();
    if (extension.empty())
        throw RequestError("--output is for --rng, --rnc and --xsd");
    const std::size_t count = WriteSchemas(options.output, name, {extension}).size();
    std::cerr << count << (count == 1 ? " schema" : " schemas") << " written to " << options.output << std::endl;
    return Done;
}

void PrintTables(const std::string& name)
{
    for (const VEXMELKDescription* description : DescriptionsOf(name))
        std::cout << "## " << description->name << "\n\n" << VEXMELKFormatTable(*description) << '\n';
}

ExitStatus RunSchema(const SchemaOptions& options, const CommandOptions& common)
{
    const std::string& name = common.configuration;
    const std::string extension = options.Extension();
    if (common.AsJson() && (!extension.empty() || options.asMarkdown || !options.editors.empty()))
        throw RequestError("schema prints one form at a time: --format json is --json");
    if (!options.editors.empty() && !(name.empty() && extension.empty() && options.output.empty()))
        throw RequestError("--editors writes the schemas of all files, and takes nothing else");
    if (!options.editors.empty())
        return WriteForEditors(options.editors);
    if (!options.output.empty())
        return WriteAll(options, name);
    if (!extension.empty() && name.empty())
        throw RequestError(
            "a schema is that of one file: name a configuration, or a folder for all of them by --output");
    if (!extension.empty())
        std::cout << SchemaOf(*DescriptionsOf(name).front(), extension);
    else if (options.asJson || common.AsJson())
        PrintJson(DescriptionsToJson(DescriptionsOf(name)));
    else
        PrintTables(name);
    return Done;
}

} // namespace

void AddSchemaCommands(CommandLine& line)
{
    const auto options = std::make_shared<SchemaOptions>();
    CLI::App* schema = line.Add("schema", "What each file may hold: as tables, as schemas, for editors",
        [&line, options](const Host&) { return RunSchema(*options, line.options); });
    schema->add_option("CONFIG", line.options.configuration, "Only that of this configuration");
    CLI::Option_group* form = schema->add_option_group("form");
    form->add_flag("--rng", options->asRelaxNG, "A schema in RELAX NG");
    form->add_flag("--rnc", options->asCompact, "A schema in the compact syntax of RELAX NG");
    form->add_flag("--xsd", options->asXmlSchema, "A schema in XML Schema 1.0");
    form->add_flag("--json", options->asJson, "The descriptions as data");
    form->add_flag("--markdown", options->asMarkdown, "Tables in Markdown, which is the default");
    form->require_option(0, 1);
    schema->add_option("--output", options->output, "Write the schemas of all files into this folder")
        ->type_name("DIR");
    schema->add_option("--editors", options->editors, "Write all that VS Code and Emacs need into this folder")
        ->type_name("DIR");
}
