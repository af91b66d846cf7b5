// What the menu entries do: the catalogue menus, the entry menu, the
// parameter commands, the colour and loop choices, the drawn-curves menu.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

#include "app/commandes/etiquettes.h"
#include "app/dialogues/coli.h"
#include "app/dialogues/couleurs.h"
#include "app/dialogues/licou.h"
#include "app/dialogues/param.h"
#include "app/dialogues/ticar.h"
#include "app/dialogues/tinu.h"
#include "app/dialogues/tipara.h"
#include "app/fenetre/mirado.h"
#include "catalogue/catalogue.h"
#include "plot/ecran.h"
#include "settings/fichier_couleurs.h"

namespace velorin {

namespace {

constexpr int maxEntreesMenu = 30;
const char* const legendeCreer = "&Créer nouveau fichier";

// A file name or entry text shown as a menu caption: "&" is not a mnemonic.
QString sansMnemonique(const QString& texte)
{
    QString t = texte;
    return t.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

void Mirado::choixCoche(std::vector<QAction*>& groupe, int index)
{
    for (int i = 0; i < int(groupe.size()); ++i)
        groupe[i]->setChecked(i == index);
}

// The six colours of the curve and tangent menus, in menu order.
static Couleur couleurMenu(const CouleursDefaut& d, int index)
{
    const Couleur couleurs[] = {0, d.coulRouge, d.coulVert, d.coulBleu, d.coulJaune, d.coulBlanc};
    return couleurs[index];
}

void Mirado::marqueChoix()
{
    auto indexDe = [this](Couleur c) {
        for (int i = 0; i < 6; ++i)
            if (couleurMenu(etat.defaut, i) == c)
                return i;
        return -1;
    };
    choixCoche(mnucl, indexDe(etat.couleurs.couleurTrace));
    choixCoche(mnuct, indexDe(etat.couleurs.couleurTangente));
    choixCoche(mnuper, etat.param.ordreBoucles);
    choixCoche(mnuchcol, etat.fenetre.politiqueCouleurs);
    choixCoche(mnuipo, etat.fenetre.orientationImprimante);
    mnupara[2]->setChecked(etat.fenetre.inversionVideo);
}

// ---- Fichiers

void Mirado::mnustp_Click(int index)
{
    if (index != 0)
        return;
    // The companion program, when it is installed beside the executable.
    const QString compagnon = programmeDans(dossierAppli, QStringLiteral("wemrab"));
    if (!compagnon.isEmpty())
        programmes.lance(compagnon, {}, dossierAppli);
    echap_ = true;
    QApplication::quit();
}

void Mirado::aflico()
{
    const EtatFenetre& f = etat.fenetre;
    struct Liste {
        const std::string& dossier;
        QMenu* menu;
        std::vector<QAction*>& articles;
        void (Mirado::*clic)(int);
    };
    for (const Liste& l : {Liste{f.cheminEspaceCourbes, menuLifi, mnulifi, &Mirado::mnulifi_Click},
                           Liste{f.cheminPlanCourbes, menuLico, mnulico, &Mirado::mnulico_Click}}) {
        l.menu->clear();
        l.articles.clear();
        QStringList fichiers = QDir(QString::fromStdString(l.dossier))
                                   .entryList({QStringLiteral("*.lsu")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
        fichiers << QString();  // the creation item ends the list
        for (const QString& nom : fichiers) {
            const int index = int(l.articles.size());
            QAction* a = l.menu->addAction(nom.isEmpty() ? QString::fromUtf8(legendeCreer) : sansMnemonique(nom));
            a->setData(nom);
            nommeArticle(a, l.menu == menuLifi ? "mnulifi" : "mnulico", index);
            auto clic = l.clic;
            connect(a, &QAction::triggered, this, [this, clic, index] { (this->*clic)(index); });
            l.articles.push_back(a);
        }
    }
}

// Choosing a catalogue file. The name of a new one is asked first: cancelled
// or refused, nothing changes (mode, folders, panel, catalogue). Then the
// mode of its folder (folders, panel) and the start of work on the file.
void Mirado::choisitFichier(bool espace, const QAction* article)
{
    if (refuseSiOccupe())
        return;
    const QString choisi = article->data().toString();
    const std::optional<std::string> nom = choisi.isEmpty() ? crenouveau() : choisi.toStdString();
    if (!nom)
        return;
    etat.fenetre.choisisMode(espace);
    montrePanneau();
    etat.fenetre.fichierCatalogue = *nom;
    debutravail();  // opens (and so creates) the file
    if (choisi.isEmpty())
        aflico();
}

void Mirado::mnulifi_Click(int index)
{
    choisitFichier(true, mnulifi.at(index));
}

void Mirado::mnulico_Click(int index)
{
    choisitFichier(false, mnulico.at(index));
}

std::optional<std::string> Mirado::crenouveau()
{
    const std::optional<QString> reponse = boites.saisie(
        this, QStringLiteral("tapez un nom simple"), QStringLiteral("Je rajouterai si nécessaire l'extention .lsu"));
    const std::optional<std::string> nom = reponse ? nomNouveauCatalogue(reponse->toStdString()) : std::nullopt;
    if (reponse && !nom)
        boites.message(this, QStringLiteral("« %1 » n'est pas un nom simple : pas de catalogue créé.").arg(*reponse));
    return nom;
}

// ---- CREER FONCTIONS

void Mirado::mnutf_Click(int index)
{
    if (index > 6 || refuseSiOccupe())
        return;
    if (index == 5 || index == 6) {  // the cloud and the object editors
        bool enregistre = false;
        if (index == 5) {
            Tinu tinu(etat.catalogue, etat.fenetre.modeEspace, boites, this);
            tinu.exec();
            enregistre = tinu.aEnregistre();
        } else {
            Ticar ticar(etat.catalogue, etat.fenetre.modeEspace, boites, this);
            ticar.exec();
            enregistre = ticar.aEnregistre();
        }
        if (enregistre)
            afmenu();
        return;
    }
    Tipara editeur(etat.catalogue, etat.fenetre.modeEspace, index, boites, &etat, this);
    editeur.exec();
    if (editeur.aEnregistre())
        afmenu();
}

// ---- ENVOYER

void Mirado::afmenu()
{
    Erreur erreur = ouvrirCatalogue(etat.catalogue);
    for (std::size_t i = 1; i < mnufa.size(); ++i)
        delete mnufa[i];
    mnufa.resize(1);
    delete mnufaReste;
    mnufaReste = nullptr;
    const int nb = etat.catalogue.nbLignesCatalogue;
    for (int n = 1; n <= std::min(nb, maxEntreesMenu) && !erreur; ++n) {
        LigneCatalogue ligne;
        erreur = lisLigne(etat.catalogue, n, ligne);
        if (erreur)
            break;
        const QString texte = QString::fromStdString(entierFormate(n, 3) + ")" + ligne.texte);
        QAction* a = menuGraphe->addAction(sansMnemonique(texte.trimmed()));
        connect(a, &QAction::triggered, this, [this, n] { mnufa_Click(n); });
        nommeArticle(a, "mnufa", int(mnufa.size()));
        mnufa.push_back(a);
    }
    if (erreur)
        boites.message(this, QString::fromStdString(erreur.message()));
    if (nb > maxEntreesMenu) {
        mnufaReste =
            menuGraphe->addAction(QStringLiteral("… et %1 autres entrées : voir « 0)Au choix dans la liste complète »")
                                      .arg(nb - maxEntreesMenu));
        mnufaReste->setEnabled(false);
        mnufaReste->setObjectName(QStringLiteral("mnufaReste"));
    }
}

void Mirado::mnufa_Click(int index)
{
    if (index == 0) {
        if (refuseSiOccupe())
            return;
        Coli liste(etat.catalogue, cheminCatalogue().toStdString(), boites, this);
        if (liste.exec() != QDialog::Accepted || liste.choix().empty())
            return;
        envoieSelection(liste.choix(), liste.mode());
        activateWindow();
        return;
    }
    // The entry number is in the first three characters of the caption.
    envoie(mnufa.at(index)->text().left(3).toInt());
}

void Mirado::mnuf_Click(int index)
{
    if (index == 2) {
        if (refuseSiOccupe())
            return;
        remetBase(etat.param);
        affou();
    }
    Command3_Click();
}

// ---- PARAMETRER

void Mirado::mnupara_Click(int index)
{
    if (refuseSiOccupe())
        return;
    switch (index) {
    case 0: {  // le repère: the dialog writes the memory file, read back here
        Param dialogue(etat.param, etat.fenetre.dossierCourbes, etat.fenetre.modeEspace, boites, this);
        if (dialogue.exec() != QDialog::Accepted)
            return;
        raise();
        activateWindow();
        if (dialogue.vidage())
            vidage();
        lecdebut(dialogue.lecture());
        break;
    }
    case 1: {  // les Couleurs: the scheme, remembered under policy 1
        Couleurs dialogue(etat.couleurs, etat.fenetre.modeEspace, etat.fenetre.politiqueCouleurs, boites, this);
        if (dialogue.exec() != QDialog::Accepted)
            break;
        const std::string chemin = etat.fenetre.dossierCourbes + nomFichierCouleurs();
        if (etat.fenetre.politiqueCouleurs == 1)
            if (auto erreur = ecrisCouleurs(chemin, etat.couleurs))
                boites.message(this, QString::fromStdString(erreur.message()));
        marqueChoix();
        Command3_Click();
        break;
    }
    case 2:  // InversionVidéo: black and white swap, everything drawn again
        etat.fenetre.inversionVideo = !etat.fenetre.inversionVideo;
        mnupara[2]->setChecked(etat.fenetre.inversionVideo);
        lecouleurs();
        Command3_Click();
        break;
    case 3:  // TraceRepère
        traceRepere(etat, *surface_);
        montreProgres();
        break;
    case 4:  // EffaceRepère: the curves stay, drawn again on a clean window
        seance({.repere = false, .lignes = toutesLesLignes(etat.courbes)});
        break;
    case 5:  // Efface Ecran: only the window is cleared; the drawn curves stay
             // listed and the redraw "O&K" brings them back
        effaceEcran(etat, *surface_);
        montreProgres();
        break;
    case 8: ouvreMenage(); break;
    default: break;
    }
}

// The colours, the loop order and the colour policy are the drawing's state:
// chosen during a tracing, they would be put back by the tracer when it ends
// (it restores the values in force at its start). They are refused then, and
// the check marks stay on the values in force.
bool Mirado::refuseChoixPendantTrace()
{
    if (!refuseSiOccupe())
        return false;
    marqueChoix();
    return true;
}

void Mirado::mnucl_Click(int index)
{
    if (refuseChoixPendantTrace())
        return;
    // The colour of the next curves and of the next families alike; the
    // colour dialog can set the family colour apart afterwards.
    etat.couleurs.couleurTrace = couleurMenu(etat.defaut, index);
    etat.couleurs.couleurFamille = etat.couleurs.couleurTrace;
    choixCoche(mnucl, index);
}

void Mirado::mnuct_Click(int index)
{
    if (refuseChoixPendantTrace())
        return;
    etat.couleurs.couleurTangente = couleurMenu(etat.defaut, index);
    choixCoche(mnuct, index);
}

void Mirado::mnuper_Click(int index)
{
    if (refuseChoixPendantTrace())
        return;
    etat.param.ordreBoucles = std::uint8_t(index);
    choixCoche(mnuper, index);
}

void Mirado::mnuchcol_Click(int index)
{
    if (refuseChoixPendantTrace())
        return;
    if (index == 2) {
        // "Couleurs déjà mémorisées": the remembered scheme comes back in
        // force; a missing or damaged file changes nothing.
        const std::string chemin = etat.fenetre.dossierCourbes + nomFichierCouleurs();
        if (auto erreur = lisCouleurs(chemin, etat.couleurs)) {
            boites.message(this, QString::fromStdString(erreur.message()));
            marqueChoix();
            return;
        }
        etat.fenetre.politiqueCouleurs = index;
        marqueChoix();
        Command3_Click();
        return;
    }
    etat.fenetre.politiqueCouleurs = index;
    choixCoche(mnuchcol, index);
}

void Mirado::mnuipo_Click(int index)
{
    etat.fenetre.orientationImprimante = index;
    choixCoche(mnuipo, index);
}

// ---- Drawn curves

void Mirado::vidage()
{
    if (etiquettes_)
        etiquettes_->videlabel();
    vide_mnutra();
    videCourbes(etat.courbes);
}

void Mirado::vide_mnutra()
{
    for (std::size_t i = 1; i < mnutra.size(); ++i)
        delete mnutra[i];
    mnutra.resize(1);
}

void Mirado::ajoute_mnutra()
{
    const int i = int(mnutra.size());
    QAction* a = mnutrace->addAction(sansMnemonique(ligneTracee(etat.courbes, etat.catalogue, i)));
    connect(a, &QAction::triggered, this, [this, i] { mnutra_Click(i); });
    nommeArticle(a, "mnutra", i);
    mnutra.push_back(a);
}

void Mirado::mnutra_Click(int index)
{
    if (refuseSiOccupe())
        return;
    Licou liste(etat.courbes, etat.catalogue, index, this);
    if (liste.exec() != QDialog::Accepted)
        return;
    if (liste.retrait()) {
        // The ticked curves leave the table; the others are drawn again.
        retireCourbes(etat.courbes, liste.cochees());
        vide_mnutra();
        for (int i = 1; i <= etat.courbes.nbCourbes; ++i)
            ajoute_mnutra();
        Command3_Click();
        return;
    }
    // The frame again, then the ticked curves only.
    seance({.lignes = liste.cochees()});
}

void Mirado::mnuzo_Click(int index)
{
    if (index >= 0 && index < 4)
        grossir(index + 1);
    if (index == 4)
        mnutra_Click(0);
    if (index == 5)
        ouvreLipo();
}

}  // namespace velorin
