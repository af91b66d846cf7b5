// The bench of the `velorin catalogue` tests: each sub-command runs as a
// separate process in a fresh folder, as a script runs it; its output, its
// exit status and the folder's files afterwards are what the tests read.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "catalogue/catalogue.h"
#include "processus.h"

namespace velorin::essai {

namespace fs = std::filesystem;

// A record as the file holds it, as a std::string (fichier_editeur.h's
// `enregistrement` gives the same bytes as a QByteArray).
inline std::string octetsFiche(int genre, const std::string& texte)
{
    return octetsEnregistrement({static_cast<std::int16_t>(genre), texte});
}

class CommandeCatalogue : public DossierProcessus {
protected:
    CommandeCatalogue() : DossierProcessus("velorin_catalogue_", "catalogue") { }
    // Refused with exit 2 and `message`, the folder's files unchanged.
    void refuse(const QStringList& arguments, const std::string& message,
                const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment())
    {
        const std::string nom = arguments.join(' ').toStdString();
        const std::set<std::string> avant = noms();
        const std::string catalogue = contenu("c.lsu");
        const Sortie s = lance(arguments, environnement);
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_NE(s.erreurs.find(message), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(s.sortie, "") << nom;
        EXPECT_EQ(noms(), avant) << nom;
        EXPECT_EQ(contenu("c.lsu"), catalogue) << nom;
    }
};

}  // namespace velorin::essai
