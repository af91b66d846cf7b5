// `velorin` run as a separate process, as a user or a script runs it: its
// exit status, what it prints, and the files its folder holds afterwards.
#pragma once
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <map>

#include "catalogue/catalogue.h"
#include "commun/commun.h"

namespace velorin::essai {

struct Sortie {
    int code = -1;  // exit status; -1 when the process did not end normally
    std::string sortie, erreurs;
};

// `velorin ARGUMENTS` in `dossier`; its standard output goes to `fichierSortie` when given.
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

inline std::string octetsFiche(int genre, const std::string& texte)
{
    return octetsEnregistrement({static_cast<std::int16_t>(genre), texte});
}

// Writes fail after `octets` bytes, as on a full disk.
inline QProcessEnvironment disquePlein(const char* octets)
{
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert("VELORIN_ESSAI_DISQUE_PLEIN", octets);
    return e;
}

// One sub-command of `velorin` run in a fresh folder.
class DossierProcessus : public ::testing::Test {
protected:
    using Env = QProcessEnvironment;
    explicit DossierProcessus(const char* commande) : commande_(QString::fromUtf8(commande)) { }
    Sortie lance(const QStringList& arguments, const Env& env = Env::systemEnvironment())
    {
        return lanceVelorin(QStringList{commande_} + arguments, dossier_.chemin().string(), env);
    }
    QString chemin(const char* nom) const { return QString::fromStdString(dossier_ / nom); }
    std::string contenu(const char* nom) const { return lisFichier(dossier_ / nom); }
    void ecris(const char* nom, const std::string& octets) const { ecrisFichier(dossier_ / nom, octets); }
    // Refused with status 2 and `message` in French on the error output: nothing printed, no English
    // from Qt or the C++ library, every name and every file's bytes in the folder as they were.
    void refuse(const QStringList& arguments, const std::string& message, const Env& env = Env::systemEnvironment())
    {
        const std::string nom = arguments.join(' ').toStdString();
        const auto fichiers = [&] {  // every name, with the bytes of the plain files
            std::map<std::string, std::string> f;
            for (const std::string& n : dossier_.noms())
                f[n] = fs::is_regular_file(fs::symlink_status(dossier_.chemin() / n)) ? lisFichier(dossier_ / n) : "";
            return f;
        };
        const auto avant = fichiers();
        const Sortie s = lance(arguments, env);
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_NE(s.erreurs.find(message), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(s.sortie, "") << nom;
        for (const char* anglais : {"QPainter", "qt.", "filesystem", "terminate", "No such file", "Is a directory"})
            EXPECT_EQ(s.erreurs.find(anglais), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(fichiers(), avant) << nom;
    }
    QString commande_;
    DossierTemporaire dossier_{"velorin_processus_"};
};

}  // namespace velorin::essai
