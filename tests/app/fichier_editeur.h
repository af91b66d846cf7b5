// The catalogue file an editor's test works on, and the bytes of a record.
#pragma once
#include <QByteArray>

#include "app/boites.h"
#include "banc_fenetre.h"

namespace velorin::essai {

// The catalogue Espace_courbes/essai.lsu of a bench, empty or with `nb`
// curves; `boites` records in `messages` what the editor says.
struct Fichier {
    Banc banc;
    Catalogue cat;
    QStringList messages;
    Boites boites;
    explicit Fichier(int nb)
    {
        banc.ecrisCatalogue("Espace_courbes/essai.lsu", nb);
        EXPECT_FALSE(ouvrirCatalogue(cat, banc.chemin("Espace_courbes/essai.lsu").toStdString()));
        boites.message = [this](QWidget*, const QString& texte) { messages << texte; };
    }
    QByteArray octets() const
    {
        QFile f(QString::fromStdString(cat.chemin));
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    }
};

// What a record holds: kind (16 bits, little-endian) and 300 padded bytes.
inline QByteArray enregistrement(int genre, const std::string& texte)
{
    return QByteArray(1, char(genre & 0xff)) + char((genre >> 8) & 0xff) +
           QByteArray::fromStdString(texte).leftJustified(300, ' ');
}

}  // namespace velorin::essai
