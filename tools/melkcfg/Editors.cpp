// VS Code takes relative paths from whichever folder is open, so its settings name the schemas by their full paths. The
// other files may be moved with their folder.
#include "Editors.h"

#include "Json.h"
#include "VEXMELKDocumentText.h"

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

constexpr const char* settingsFile = "settings.json";
constexpr const char* catalogFile = "catalog.xml";

Json SettingsFor(const std::string& folder, const std::vector<std::string>& stems)
{
    const fs::path path = fs::absolute(folder).lexically_normal();
    Json associations = Json::array();
    for (const std::string& stem : stems)
        associations.push_back(
            {{"pattern", "**/" + stem + ".xml"}, {"systemId", (path / (stem + ".xsd")).generic_string()}});
    return {{"xml.catalogs", Json::array({(path / catalogFile).generic_string()})},
        {"xml.fileAssociations", associations}, {"xml.validation.enabled", true},
        {"xml.validation.schema.enabled", "always"}, {"xml.downloadExternalResources.enabled", false},
        {"xml.preferences.showSchemaDocumentationType", "documentation"}};
}

// For files that name their schema themselves: xsi:noNamespaceSchemaLocation="urn:melkcfg:OVA/UFCurb.xsd".
std::string Catalog(const std::vector<std::string>& stems)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<catalog xmlns=\"urn:oasis:names:tc:entity:xmlns:xml:catalog\" prefer=\"public\">\n";
    for (const std::string& stem : stems)
    {
        const std::string file = VEXMELKEscaped(stem) + ".xsd";
        text += "  <uri name=\"urn:melkcfg:" + file + "\" uri=\"" + file + "\"/>\n";
        text += "  <system systemId=\"urn:melkcfg:" + file + "\" uri=\"" + file + "\"/>\n";
    }
    return text + "</catalog>\n";
}

std::string LocatingRules(const std::vector<std::string>& stems)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<locatingRules xmlns=\"http://thaiopensource.com/ns/locating-rules/1.0\">\n";
    for (const std::string& stem : stems)
        text += "  <uri pattern=\"" + VEXMELKEscaped(stem) + ".xml\" uri=\"" + VEXMELKEscaped(stem) + ".rnc\"/>\n";
    return text + "</locatingRules>\n";
}

constexpr const char* emacsFile =
    R"(;;; melkcfg.el --- schemas of configuration files for nxml-mode  -*- lexical-binding: t -*-
;;; Commentary:
;; Load this file: nxml-mode then finds the schemas beside it by the paths of the files.
;;; Code:
(require 'rng-loc)
(add-to-list 'rng-schema-locating-files
             (expand-file-name "schemas.xml" (file-name-directory (or load-file-name buffer-file-name))))
(provide 'melkcfg)
;;; melkcfg.el ends here
)";

} // namespace

std::map<std::string, std::string> EditorFiles(const std::string& folder, const std::vector<std::string>& stems)
{
    return {{settingsFile, SettingsFor(folder, stems).dump(2) + "\n"}, {catalogFile, Catalog(stems)},
        {"schemas.xml", LocatingRules(stems)}, {"melkcfg.el", emacsFile}};
}

void RequireOwnSettings(const std::string& folder)
{
    std::ifstream stream(fs::path(folder) / settingsFile);
    if (!stream)
        return;
    const Json own = SettingsFor(folder, {});
    const Json found = Json::parse(stream, nullptr, false);
    bool isOwn = found.is_object();
    if (isOwn)
        for (const auto& setting : found.items())
            isOwn = isOwn && own.contains(setting.key());
    if (!isOwn)
        throw RequestError(folder + "/" + settingsFile +
                           " holds other settings: write into another folder, and take over what is in its " +
                           settingsFile);
}
