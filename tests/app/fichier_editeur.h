// The catalogue file an editor's test works on, and the bytes of a record,
// for the tests of the function, object and cloud editors.
#pragma once
#include <QByteArray>
#include <QFile>
#include <QStringList>

#include "app/boites.h"
#include "banc_fenetre.h"

namespace velorin::essai {

// The catalogue file of a bench, empty or with `nb` curves; `boites` records
// in `messages` what the editor says.
struct Fichier {
    Banc banc;
    Catalogue cat;
    QStringList messages;
    Boites boites;
    explicit Fichier(int nb)
    {
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/essai.lsu"), nb);
        EXPECT_FALSE(ouvrirCatalogue(cat, banc.chemin(QStringLiteral("Espace_courbes/essai.lsu")).toStdString()));
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
inline QByteArray enregistrement(int genre, const char* texte)
{
    QByteArray r;
    r.append(char(genre & 0xff)).append(char((genre >> 8) & 0xff));
    r.append(QByteArray(texte).leftJustified(300, ' '));
    return r;
}

}  // namespace velorin::essai
