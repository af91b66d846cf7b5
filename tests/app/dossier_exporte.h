// Fixture of the `velorin exporte` process tests: the process's folder with
// a test catalogue "essai.lsu" in it.
#pragma once
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "catalogue/catalogue.h"
#include "processus.h"

namespace velorin::essai {

class DossierExporte : public DossierProcessus {
protected:
    // `prefixe` names the folder, `entrees` the catalogue's entries as
    // (kind, text), numbered from 1 in the order given.
    DossierExporte(const char* prefixe, std::initializer_list<std::pair<int, const char*>> entrees)
        : DossierProcessus(prefixe, "exporte"), entrees_(entrees)
    { }
    void SetUp() override
    {
        DossierProcessus::SetUp();
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, (dossier_ / "essai.lsu").string()));
        int n = 1;
        for (auto [genre, texte] : entrees_) {
            LigneCatalogue l;
            l.typeFonction = static_cast<std::int16_t>(genre);
            l.texte = texte;
            ASSERT_FALSE(ecrisLigne(cat, n++, l));
        }
    }

private:
    std::vector<std::pair<int, const char*>> entrees_;
};

}  // namespace velorin::essai
