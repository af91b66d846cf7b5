// `velorin` run as a separate process, as a user or a script runs it.
#pragma once
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace velorin::essai {

struct Sortie {
    int code = -1;  // exit status; -1 when the process did not end normally
    std::string sortie, erreurs;
};

// `velorin ARGUMENTS` in the folder `dossier`; its standard output goes to
// `fichierSortie` when one is given.
inline Sortie lanceVelorin(const QStringList& arguments, const std::string& dossier,
                           const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment(),
                           const QString& fichierSortie = {})
{
    QProcess p;
    p.setProcessEnvironment(environnement);
    p.setWorkingDirectory(QString::fromStdString(dossier));
    if (!fichierSortie.isEmpty())
        p.setStandardOutputFile(fichierSortie);
    p.start(QString(VELORIN_BIN_DIR) + "/velorin", arguments);
    p.waitForFinished(60000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, p.readAllStandardOutput().toStdString(),
            p.readAllStandardError().toStdString()};
}

// A fresh folder named after the test program's process, where one
// sub-command of `velorin` runs; the files it leaves are read back.
class DossierProcessus : public ::testing::Test {
protected:
    DossierProcessus(const char* prefixe, const char* commande)
        : dossier_(std::filesystem::temp_directory_path() / (prefixe + std::to_string(::getpid()))),
          commande_(QString::fromUtf8(commande))
    { }
    void SetUp() override
    {
        std::filesystem::remove_all(dossier_);
        std::filesystem::create_directories(dossier_);
    }
    void TearDown() override { std::filesystem::remove_all(dossier_); }

    Sortie lance(const QStringList& arguments,
                 const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment())
    {
        return lanceVelorin(QStringList{commande_} + arguments, dossier_.string(), environnement);
    }
    QString chemin(const char* nom) const { return QString::fromStdString((dossier_ / nom).string()); }
    std::string contenu(const char* nom) const
    {
        std::ifstream f(dossier_ / nom, std::ios::binary);
        std::stringstream s;
        s << f.rdbuf();
        return s.str();
    }
    void ecris(const char* nom, const std::string& octets) const
    {
        std::ofstream(dossier_ / nom, std::ios::binary) << octets;
    }
    // Names in the folder, links included (a loop too), sorted.
    std::set<std::string> noms() const
    {
        std::set<std::string> n;
        for (const auto& e : std::filesystem::directory_iterator(dossier_))
            n.insert(e.path().filename().string());
        return n;
    }

    std::filesystem::path dossier_;

private:
    QString commande_;
};

}  // namespace velorin::essai
