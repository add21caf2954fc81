// What makes editors use schemas: VS Code's XML extension and Emacs' nxml-mode.
#ifndef MELKCFG_Editors_H
#define MELKCFG_Editors_H

#include <map>
#include <string>
#include <vector>

// The files that belong beside the schemas ("OVA/UFCurb" has OVA/UFCurb.xsd and OVA/UFCurb.rnc), by name.
std::map<std::string, std::string> EditorFiles(const std::string& folder, const std::vector<std::string>& stems);

// Throws RequestError when the folder's settings hold something that EditorFiles does not write.
void RequireOwnSettings(const std::string& folder);

#endif
