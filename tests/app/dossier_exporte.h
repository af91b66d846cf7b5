// Fixture of the `velorin exporte` process tests: a fresh folder named after
// the test program's process, a test catalogue "essai.lsu" in it, the
// program run there, and the files it leaves read back.
#pragma once
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue.h"

namespace velorin::essai {

struct Sortie {
    int code = -1;  // -1: the program crashed or hung
    std::string erreurs;
};

class DossierExporte : public ::testing::Test {
protected:
    // `prefixe` names the folder, `entrees` the catalogue's entries as
    // (kind, text), numbered from 1 in the order given.
    DossierExporte(const char* prefixe, std::initializer_list<std::pair<int, const char*>> entrees)
        : dossier_(std::filesystem::temp_directory_path() / (prefixe + std::to_string(::getpid()))), entrees_(entrees)
    { }
    void SetUp() override
    {
        std::filesystem::remove_all(dossier_);
        std::filesystem::create_directories(dossier_);
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
    void TearDown() override { std::filesystem::remove_all(dossier_); }

    Sortie lance(const QStringList& arguments,
                 const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment())
    {
        QProcess p;
        p.setProcessEnvironment(environnement);
        p.setWorkingDirectory(QString::fromStdString(dossier_.string()));
        p.start(QString(VELORIN_BIN_DIR) + "/velorin", QStringList{"exporte"} + arguments);
        p.waitForFinished(60000);
        return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, p.readAllStandardError().toStdString()};
    }
    QString chemin(const char* nom) const { return QString::fromStdString((dossier_ / nom).string()); }
    std::string contenu(const char* nom) const
    {
        std::ifstream f(dossier_ / nom, std::ios::binary);
        std::stringstream s;
        s << f.rdbuf();
        return s.str();
    }
    void ecris(const char* nom, const std::string& texte) const
    {
        std::ofstream(dossier_ / nom, std::ios::binary) << texte;
    }

    std::filesystem::path dossier_;

private:
    std::vector<std::pair<int, const char*>> entrees_;
};

}  // namespace velorin::essai
