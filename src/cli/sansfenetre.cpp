// `velorin sansfenetre`: what `make run` does without a display. Every entry
// of the space and plane galleries is drawn alone (frame and entry, as the
// main window would show it) into its own PNG file, and a contact sheet puts
// them side by side with their numbers and texts, for a look at everything
// at once.
#include <QFont>
#include <QImage>
#include <QPainter>

#include <cstdio>
#include <filesystem>
#include <string>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "cli/commandes.h"
#include "cli/rendu.h"
#include "cli/sortie_standard.h"
#include "qt/dossiers.h"
#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"

namespace fs = std::filesystem;

namespace velorin {

namespace {

constexpr int kLargeur = 1024, kHauteur = 768;  // one entry
constexpr int kColonnes = 4, kVignette = 400;   // contact sheet
constexpr int kLegende = 36;                    // caption height

struct Galerie {
    bool espace;
    const char* dossier;
    const char* fichier;
    const char* nom;
};

// Draws the contact sheet of the images `images` (entry n in images[n-1]).
Erreur planche(const std::vector<std::string>& images, const std::vector<std::string>& textes,
               const std::string& sortie)
{
    const int lignes = (static_cast<int>(images.size()) + kColonnes - 1) / kColonnes;
    const int hv = kVignette * kHauteur / kLargeur;
    QImage feuille(kColonnes * kVignette, lignes * (hv + kLegende), QImage::Format_RGB32);
    feuille.fill(Qt::white);
    QPainter p(&feuille);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    QFont police("DejaVu Sans");
    police.setPixelSize(12);
    p.setFont(police);
    for (std::size_t i = 0; i < images.size(); ++i) {
        const int x = static_cast<int>(i % kColonnes) * kVignette;
        const int y = static_cast<int>(i / kColonnes) * (hv + kLegende);
        QImage image(QString::fromStdString(images[i]));
        if (!image.isNull())
            p.drawImage(QRect(x, y, kVignette, hv), image);
        const QString legende = QString::number(i + 1) + " : " + QString::fromStdString(textes[i]).trimmed();
        p.drawText(QRect(x + 4, y + hv + 2, kVignette - 8, kLegende - 4), Qt::TextWrapAnywhere, legende);
    }
    p.end();
    return ecrisPngRapide(feuille, sortie);
}

// The gallery's catalogue: the user's one in the application folder, else
// the factory one.
std::string catalogueGalerie(const Emplacements& lieux, const Galerie& g)
{
    const std::string utilisateur = (fs::path(lieux.appli.toStdString()) / g.dossier / g.fichier).string();
    std::error_code ec;
    if (fs::exists(utilisateur, ec) || ec)
        return utilisateur;
    return (fs::path(lieux.usine.toStdString()) / g.dossier / g.fichier).string();
}

// Failures go to the error output, the list of what was drawn to the output.
void signale(const std::string& texte)
{
    std::fprintf(stderr, "velorin sansfenetre : %s\n", texte.c_str());
}

}  // namespace

int commandeSansFenetre(int, char**)
{
    assureApplication();
    const Emplacements lieux = emplacements();
    const fs::path apercus = fs::path(lieux.appli.toStdString()) / "Apercus";
    const Galerie galeries[] = {{true, nomsDossiers[0], "Lisurf.lsu", "espace"},
                                {false, nomsDossiers[2], "Lico.lsu", "plan"}};
    std::printf("Pas de fenêtre : les galeries sont dessinées dans des images PNG.\n");
    int statut = 0;
    for (const Galerie& g : galeries) {
        const std::string catalogue = catalogueGalerie(lieux, g);
        Catalogue cat;
        Erreur echec = verifieFichierLisible(catalogue, "Le catalogue");
        if (!echec)
            echec = ouvrirCatalogue(cat, catalogue);
        if (echec) {
            signale("galerie " + std::string(g.fichier) + " : " + echec.message());
            statut = 1;
            continue;
        }
        const fs::path dossier = apercus / g.nom;
        std::error_code ec;
        fs::create_directories(dossier, ec);
        if (auto absent = verifieDossier(dossier.string(), "Le dossier des images")) {
            signale("galerie " + std::string(g.fichier) + " : " +
                    (ec ? "Le dossier des images " + texteCite(dossier.string()) +
                              " n'a pas pu être créé : " + raisonSysteme(ec.value()) + "."
                        : absent.message()));
            statut = 1;
            continue;
        }
        const std::string mem = (fs::path(catalogue).parent_path() / nomFichierMemoire(true)).string();
        const std::string parametres = verifieFichierLisible(mem) ? std::string() : mem;
        std::vector<std::string> images, textes;  // an image not written: "" (a blank place)
        int ecrites = 0;
        for (int n = 1; n <= cat.nbLignesCatalogue; ++n) {
            LigneCatalogue ligne;
            if (auto illisible = lisLigne(cat, n, ligne)) {
                signale(illisible.message());
                statut = 1;
            }
            DemandeRendu d;
            d.espace = g.espace;
            d.catalogue = catalogue;
            d.parametres = parametres;
            d.largeurPx = kLargeur;
            d.hauteurPx = kHauteur;
            d.entrees = {n};
            char nom[16];
            std::snprintf(nom, sizeof nom, "%02d.png", n);
            d.sortie = (dossier / nom).string();
            const ResultatRendu r = rendu(d);
            if (r.erreur) {
                // A drawing's message already names its entry.
                const std::string entree = "entrée " + std::to_string(n) + " : ";
                std::string message = r.erreur.message();
                if (message.rfind(entree, 0) == 0)
                    message.erase(0, entree.size());
                signale(std::string(g.fichier) + ", " + entree + message);
                statut = 1;
            } else {
                ++ecrites;
            }
            images.push_back(r.erreur ? std::string() : d.sortie);
            textes.push_back(ligne.texte);
        }
        // Only what was written is announced; no image, no sheet.
        const int total = static_cast<int>(cat.nbLignesCatalogue);
        if (ecrites == 0 && total > 0)
            continue;
        const std::string feuille = (apercus / ("planche_" + std::string(g.nom) + ".png")).string();
        const Erreur rate = planche(images, textes, feuille);
        if (rate) {
            signale(rate.message());
            statut = 1;
        }
        const std::string ensemble = rate ? "" : ",\n  toutes ensemble dans " + texteSur(feuille);
        std::printf("Galerie %s (%d entrées) : %s dans %s%s\n", g.fichier, total,
                    ecrites == total ? "une image par entrée"
                                     : (std::to_string(ecrites) + " images sur " + std::to_string(total)).c_str(),
                    texteSur(dossier.string()).c_str(), ensemble.c_str());
    }
    return termineSortieStandard("sansfenetre", statut);
}

}  // namespace velorin
