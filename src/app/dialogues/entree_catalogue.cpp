#include "app/dialogues/entree_catalogue.h"

#include <QFont>
#include <QListWidget>

#include "base/verrou.h"

namespace velorin {

QListWidget* nouvelleListeCatalogue(QWidget* parent)
{
    auto* liste = new QListWidget(parent);
    liste->setObjectName(QStringLiteral("List2"));
    QFont fixe(QStringLiteral("Monospace"));
    fixe.setStyleHint(QFont::TypeWriter);
    liste->setFont(fixe);
    return liste;
}

void remplisListeCatalogue(QListWidget* liste, Catalogue& catalogue, const Boites& boites, QWidget* parent)
{
    Erreur erreur;
    const std::vector<std::string> lignes = listerCatalogue(catalogue, &erreur);
    liste->clear();
    for (const std::string& l : lignes)
        liste->addItem(QString::fromStdString(l));
    if (liste->count() > 0) {
        liste->item(0)->setForeground(Qt::blue);
        liste->setCurrentRow(0);
    }
    if (erreur && boites.message)
        boites.message(parent, QString::fromStdString(erreur.message()));
}

bool enregistreEntree(QListWidget* liste, Catalogue& catalogue, int genre, const std::string& texte,
                      const Boites& boites, QWidget* parent)
{
    auto dis = [&](const Erreur& erreur) {
        if (boites.message)
            boites.message(parent, QString::fromStdString(erreur.message()));
        return false;
    };
    // Held from the count to the write, so that an append never lands on a
    // line another writer has just added.
    Verrou verrou(catalogue.chemin, "Le catalogue");
    if (verrou.erreur())
        return dis(verrou.erreur());
    if (Erreur erreur = ouvrirCatalogue(catalogue))
        return dis(erreur);
    LigneCatalogue ligne;
    viderLigne(ligne);
    ligne.typeFonction = static_cast<std::int16_t>(genre);
    ligne.texte = texte;
    // The header line appends; any other line is overwritten.
    const int choisie = liste->currentRow();
    const NumeroLigne n = choisie <= 0 ? catalogue.nbLignesCatalogue + 1 : choisie;
    if (Erreur erreur = ecrisLigne(catalogue, n, ligne))
        return dis(erreur);
    remplisListeCatalogue(liste, catalogue, boites, parent);
    return true;
}

}  // namespace velorin
