// The "Exporter" menu: the picture on screen with its labels into a PNG,
// SVG or PDF file or a LaTeX TikZ figure, and the full turn of the view drawn at once, every redraw
// the timers would make (labels included), into an animated GIF or one
// numbered file per redraw. The SVG, PDF and turn are drawn on a copy of the
// session: the window's viewing values and picture stay as they are.
#include <QApplication>
#include <QFileInfo>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>

#include "app/commandes/impression.h"
#include "app/fenetre/mirado.h"
#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "plot/redessin.h"
#include "qt/dessin_fichier.h"
#include "qt/png_rapide.h"
#include "qt/tour_anime.h"
#include "settings/memoire.h"
#include "view/rotation.h"

namespace velorin {

namespace {

// Every drawn curve again, as the screen shows them: a curve whose formula
// fails has its row and its message on screen but no line, and the curves
// after it are drawn all the same.
Redessin commeALEcran(const Etat& copie)
{
    return {.lignes = toutesLesLignes(copie.courbes), .apres = [](const OptionsTrace&, const ResultatTrace&) {
                return true;
            }};
}

// The file the user chose, with `extension` added when it has none.
std::string avecExtension(const QString& nom, const char* extension)
{
    return (QFileInfo(nom).suffix().isEmpty() ? nom + QLatin1String(extension) : nom).toStdString();
}

}  // namespace

void Mirado::creeMenuExporter()
{
    mnuexp = menuBar()->addMenu(QStringLiteral("Exporter"));
    mnuexp->setObjectName(QStringLiteral("mnuexp"));
    for (const char* legende : {"Image de l'écran…", "Animation du tour complet…", "Figure LaTeX (TikZ)…"}) {
        const int index = int(mnuexpo.size());
        QAction* a = mnuexp->addAction(QString::fromUtf8(legende));
        nommeArticle(a, "mnuexpo", index);
        connect(a, &QAction::triggered, this, [this, index] { mnuexpo_Click(index); });
        mnuexpo.push_back(a);
    }
}

void Mirado::mnuexpo_Click(int index)
{
    if (refuseSiOccupe() || !boites.fichierAEcrire)
        return;
    const QString dossier = QString::fromStdString(etat.fenetre.dossierCourbes);
    const double ratio = image_.devicePixelRatio();
    if (index == 0 || index == 2) {
        // The TikZ figure: a tikzpicture of the width asked, to \input in a document.
        const bool tex = index == 2;
        const auto nom = tex ? boites.fichierAEcrire(this, QStringLiteral("Figure LaTeX (TikZ)"),
                                                     dossier + QStringLiteral("figure.tex"),
                                                     QStringLiteral("Figure LaTeX TikZ (*.tex)"))
                             : boites.fichierAEcrire(
                                   this, QStringLiteral("Image de l'écran"), dossier + QStringLiteral("ecran.png"),
                                   QStringLiteral("Image PNG (*.png);;Dessin SVG (*.svg);;Document PDF (*.pdf)"));
        if (!nom)
            return;
        const std::string chemin = avecExtension(*nom, tex ? ".tex" : ".png");
        if (surface_)
            surface_->Acheve();
        const FormatSortie format = formatSortie(chemin);
        const bool permis = tex ? format == FormatSortie::Tex
                                : format == FormatSortie::Png || format == FormatSortie::Svg || format == FormatSortie::Pdf;
        const std::string exemple = QFileInfo(*nom).completeBaseName().toStdString() + (tex ? ".tex" : ".png");
        Erreur erreur = permis ? verifieSortie(chemin, {})
                        : tex  ? Erreur("La figure LaTeX s'écrit dans un fichier .tex : nommez-la par exemple " +
                                       texteCite(exemple) + ".")
                               : Erreur("L'image de l'écran s'écrit en PNG, SVG ou PDF : nommez-la par exemple " +
                                        texteCite(exemple) + ".");
        // The TikZ figure's width, asked once its file is known.
        OptionsTex options;
        if (!erreur && tex) {
            const auto reponse = boites.saisie ? boites.saisie(this, QStringLiteral("Largeur de la figure (vide : 12cm) :"),
                                                               QStringLiteral("Figure LaTeX (TikZ)"))
                                               : std::nullopt;
            if (!reponse)
                return;
            const std::optional<double> cm =
                reponse->trimmed().isEmpty() ? std::optional(12.0) : largeurTex(reponse->trimmed().toStdString());
            if (cm)
                options.largeurCm = *cm;
            else
                erreur = "La largeur « " + reponse->toStdString() + " » est incorrecte : par exemple 12cm ou 90mm.";
        }
        if (!erreur && format == FormatSortie::Png) {
            erreur = ecrisPngRapide(imageAvecEtiquettes(*this), chemin);
        } else if (!erreur) {
            // SVG, PDF and TikZ keep lines and texts: the frame, every curve and
            // the labels are drawn again on a copy of the session, at the
            // size of the picture on screen.
            Etat copie = etat;
            EcritureEntiere fichier(chemin);
            erreur = fichier.ouverture();
            if (!erreur)
                erreur =
                    dessineDansFichier(fichier, format, int(image_.width() / ratio), int(image_.height() / ratio),
                                       etat.fenetre.fichierCatalogue, [&copie](Surface& surface) {
                                           return redessine(copie, surface, commeALEcran(copie));
                                       },
                                       options);
            if (!erreur)
                erreur = fichier.termine();
        }
        if (erreur)
            boites.message(this, QString::fromStdString(erreur.message()));
        return;
    }

    // The animation of a full turn: which turn, then where.
    if (!boites.choixListe)
        return;
    QStringList tours;
    for (const QAction* a : mnuroti)
        tours << a->text();
    const auto tour = boites.choixListe(this, QStringLiteral("Quel tour complet ?"),
                                        QStringLiteral("Animation du tour complet"), tours);
    if (!tour || *tour < 0 || *tour >= nbToursComplets)
        return;
    const auto nom = boites.fichierAEcrire(
        this, QStringLiteral("Animation du tour complet"), dossier + QStringLiteral("tour.gif"),
        QStringLiteral("Animation GIF (*.gif);;Une image par instant, numérotée par %03d (*.png *.svg *.pdf *.txt)"));
    if (!nom)
        return;
    DemandeTour d;
    d.tour = *tour;
    const QListWidgetItem* pas = List2->currentItem();
    d.pasTete = pas ? pas->text().toDouble() : 0.0;
    d.sortie = avecExtension(*nom, ".gif");
    d.largeurPx = int(image_.width() / ratio);
    d.hauteurPx = int(image_.height() / ratio);
    d.titre = etat.fenetre.fichierCatalogue;
    d.lus = {cheminCatalogue().toStdString(), etat.fenetre.dossierCourbes + nomFichierMemoire(true)};
    // The turn starts from the window's own rotation state, as its timers
    // would.
    Etat copie = etat;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ResultatTour r = exporteTour(copie, rotation_, d, commeALEcran(copie));
    QApplication::restoreOverrideCursor();
    QString texte = r.erreur ? QString::fromStdString(r.erreur.message())
                             : QStringLiteral("Animation écrite : %1 images, %2.")
                                   .arg(r.images)
                                   .arg(QString::fromStdString(texteCite(d.sortie)));
    if (!r.avertissement.empty())
        texte += QLatin1Char('\n') + QString::fromUtf8(r.avertissement.c_str());
    boites.message(this, texte);
}

}  // namespace velorin
