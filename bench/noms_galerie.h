// The names of a gallery's entries for the benchmarks' reports: the comment
// line just above each entry of its readable source in data/sources.
#pragma once
#include <fstream>
#include <string>
#include <vector>

inline std::vector<std::string> nomsDesEntrees(const std::string& source)
{
    std::ifstream f(std::string(VELORIN_SOURCE_DIR) + "/data/sources/" + source);
    std::vector<std::string> noms;
    std::string ligne, commentaire;
    while (std::getline(f, ligne)) {
        if (ligne.rfind("# ", 0) == 0)
            commentaire = ligne.substr(2);
        else if (!ligne.empty() && ligne[0] != '#')
            noms.push_back(commentaire);
    }
    return noms;
}
