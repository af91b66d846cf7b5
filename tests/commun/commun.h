// What the tests of every module share: a fresh temporary folder, a whole file read or written at once,
// states built in one line (calibrated, or with the four folders of a session on disk), viewer and frame.
#pragma once
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "plot/ecran.h"
#include "plot/etat.h"
#include "view/surface_enregistreuse.h"

namespace velorin::essai {

namespace fs = std::filesystem;
using Genre = OperationDessin::Genre;

// A folder of its own for one test, removed with everything in it at the end.
class DossierTemporaire {
public:
    explicit DossierTemporaire(const std::string& prefixe = "velorin_essai_")
    {
        static std::atomic<int> compteur{0};
        chemin_ = fs::temp_directory_path() / (prefixe + std::to_string(::getpid()) + "_" + std::to_string(compteur++));
        fs::remove_all(chemin_);
        fs::create_directories(chemin_);
    }
    ~DossierTemporaire()
    {
        std::error_code ec;
        fs::remove_all(chemin_, ec);
    }
    DossierTemporaire(const DossierTemporaire&) = delete;
    DossierTemporaire& operator=(const DossierTemporaire&) = delete;

    const fs::path& chemin() const { return chemin_; }
    std::string operator/(const std::string& nom) const { return (chemin_ / nom).string(); }
    std::vector<std::string> noms() const  // names in the folder, sorted
    {
        std::vector<std::string> n;
        for (const auto& e : fs::directory_iterator(chemin_))
            n.push_back(e.path().filename().string());
        std::sort(n.begin(), n.end());
        return n;
    }

private:
    fs::path chemin_;
};

// The whole file as bytes ("" when it cannot be read).
inline std::string lisFichier(const fs::path& chemin)
{
    std::stringstream s;
    s << std::ifstream(chemin, std::ios::binary).rdbuf();
    return s.str();
}

// Writes `octets` as the whole file, its folder created if needed.
inline void ecrisFichier(const fs::path& chemin, const std::string& octets)
{
    if (chemin.has_parent_path())
        fs::create_directories(chemin.parent_path());
    std::ofstream f(chemin, std::ios::binary | std::ios::trunc);
    f << octets;
    ASSERT_TRUE(f.good()) << chemin;
}

// Plane: ranges [-10, 10], x maps to 6980 + 688 x and y to 5410 - 536 y.
// Space: viewer (30, 20, 15) looking at the origin. No pause.
inline Etat etatCalibre(bool espace)
{
    Etat etat;
    etat.fenetre.metsModeEspace(espace);
    etat.fenetre.pauseActive = false;
    ajusteVue(etat, etat.vue.W, etat.vue.H);
    return etat;
}

// A calibrated state whose four folders exist under `racine`, in the mode chosen, with its catalogue name.
inline Etat etatAvecDossiers(const fs::path& racine, bool espace)
{
    Etat etat = etatCalibre(espace);
    EtatFenetre& f = etat.fenetre;
    f.cheminEspaceCourbes = (racine / "Espace_courbes/").string();
    f.cheminEspaceFig = (racine / "Espace_fig/").string();
    f.cheminPlanCourbes = (racine / "Plan_courbes/").string();
    f.cheminPlanFig = (racine / "Plan_fig/").string();
    for (const std::string* d : {&f.cheminEspaceCourbes, &f.cheminEspaceFig, &f.cheminPlanCourbes, &f.cheminPlanFig})
        fs::create_directories(*d);
    f.choisisMode(espace);
    f.fichierCatalogue = espace ? "Lisurf.lsu" : "Lico.lsu";
    return etat;
}

// A viewer at (x, y, z) looking at the origin, the view set up again.
inline void placeViseur(Etat& etat, double x, double y, double z)
{
    Parametres& p = etat.param;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur) = std::tuple(x, y, z);
    std::tie(p.Xdirection, p.Ydirection, p.Zdirection) = std::tuple(-x, -y, -z);
    ajusteVue(etat, etat.vue.W, etat.vue.H);
}

// The plane frame [xmin, xmax] x [ymin, ymax], the view set up again.
inline void placeCadre(Etat& etat, double xmin, double xmax, double ymin, double ymax)
{
    std::tie(etat.param.xmin, etat.param.xmax, etat.param.ymin, etat.param.ymax) = std::tuple(xmin, xmax, ymin, ymax);
    ajusteVue(etat, etat.vue.W, etat.vue.H);
}

// The recorded operations of one kind, of one colour if given.
inline std::vector<OperationDessin> duGenre(const SurfaceEnregistreuse& s, OperationDessin::Genre g,
                                            std::optional<Couleur> couleur = {})
{
    std::vector<OperationDessin> r;
    for (const auto& op : s.operations())
        if (op.genre == g && (!couleur || op.couleur == *couleur))
            r.push_back(op);
    return r;
}

}  // namespace velorin::essai
