// Test bench of the main window: a fresh application folder (a temporary
// copy of the factory files put beside the built program), a fresh state,
// and message and input boxes that record what the program says instead of
// waiting for a click; mouse events sent to a control.
#pragma once
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMouseEvent>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "app/commandes/etiquettes.h"
#include "app/fenetre/mirado.h"
#include "catalogue/catalogue.h"
#include "commun/commun.h"

namespace velorin::essai {

// A control of a window or dialog, by its object name ("Command3", "List1").
template <class T = QWidget> T* controle(const QObject& parent, const QString& nom)
{
    T* c = parent.findChild<T*>(nom);
    EXPECT_NE(c, nullptr) << nom.toStdString();
    return c;
}

// The entries of a menu array ("mnufa", "mnucl"), in index order.
inline std::vector<QAction*> articles(const QObject& fenetre, const char* tableau)
{
    std::vector<QAction*> liste;
    for (QAction* a : fenetre.findChildren<QAction*>(QString::fromUtf8(tableau))) {
        const int i = a->property("index").toInt();
        if (i >= int(liste.size()))
            liste.resize(i + 1, nullptr);
        liste[i] = a;
    }
    return liste;
}

// Entry `index` of a menu array; fails the test when it is missing.
inline QAction* article(const QObject& fenetre, const char* tableau, int index)
{
    const std::vector<QAction*> liste = articles(fenetre, tableau);
    QAction* a = index < int(liste.size()) ? liste[index] : nullptr;
    EXPECT_NE(a, nullptr) << tableau << "(" << index << ")";
    return a;
}

// One QApplication for the whole test program, before any test runs.
class EnvironnementQt : public ::testing::Environment {
public:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        if (!QCoreApplication::instance())
            new QApplication(argc_, argv_);
    }

private:
    int argc_ = 1;
    char nom_[10] = "app_tests";
    char* argv_[2] = {nom_, nullptr};
};
inline const ::testing::Environment* const environnementQt =
    ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

struct Banc {
    QTemporaryDir dossier;
    Etat etat;
    QStringList messages;                          // what the message boxes said
    std::function<void()> pendantMessage;          // while a box is open (a modal box runs the event loop)
    int fins = 0;                                  // times the program asked to end
    std::vector<std::optional<QString>> reponses;  // answers of the input boxes, in turn (none: cancel)
    QStringList saisies;                           // "title: prompt" of the input boxes shown
    QStringList questions;                         // "title: text" of the yes/no questions asked
    bool reponseQuestion = false;                  // their answer
    // The answers of the colour chooser and file dialog for a title, and of
    // the list chooser for its entries; none (cancel) when unset.
    std::function<std::optional<QColor>(const QString& titre)> choixCouleur;
    std::function<std::optional<QString>(const QString& titre)> fichierAEcrire;
    std::function<std::optional<int>(const QStringList& elements)> choixListe;
    std::unique_ptr<Mirado> fenetre;

    Banc()
    {
        const QString usine = QStringLiteral(VELORIN_BIN_DIR "/usine");
        QDirIterator it(usine, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString source = it.next();
            const QString cible = chemin(QStringLiteral("usine/") + QDir(usine).relativeFilePath(source));
            QDir().mkpath(QFileInfo(cible).absolutePath());
            QFile::copy(source, cible);
        }
    }

    QString chemin(const QString& relatif) const { return dossier.filePath(relatif); }

    void ecrisFichier(const QString& relatif, const QByteArray& contenu) const
    {
        essai::ecrisFichier(chemin(relatif).toStdString(), contenu.toStdString());
    }

    // A catalogue of curves (kind 1) with these texts.
    void ecrisCatalogue(const QString& relatif, const std::vector<std::string>& textes) const
    {
        QDir().mkpath(QFileInfo(chemin(relatif)).absolutePath());
        QFile::remove(chemin(relatif));
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, chemin(relatif).toStdString()));
        for (std::size_t n = 0; n < textes.size(); ++n)
            ASSERT_FALSE(ecrisLigne(cat, NumeroLigne(n + 1), LigneCatalogue{1, textes[n]}));
    }

    // A catalogue of `nb` parametric curves (circles of radius n % 9 + 1).
    void ecrisCatalogue(const QString& relatif, int nb) const
    {
        std::vector<std::string> textes;
        for (int n = 1; n <= nb; ++n) {
            const std::string r = std::to_string(n % 9 + 1);
            textes.push_back("x=f1(t)=(" + r + ")*COS(T)][y=f2(t)=(" + r + ")*SIN(T)][z=f3(t)=0");
        }
        ecrisCatalogue(relatif, textes);
    }

    // The window started on a space catalogue Lisurf.lsu of `nb` circles.
    Mirado& demarre(int nb)
    {
        ecrisCatalogue("Espace_courbes/Lisurf.lsu", nb);
        return demarre();
    }

    Mirado& demarre()
    {
        Boites boites;
        boites.message = [this](QWidget*, const QString& texte) {
            messages << texte;
            if (pendantMessage)
                pendantMessage();
        };
        boites.question = [this](QWidget*, const QString& texte, const QString& titre) {
            questions << titre + QStringLiteral(": ") + texte;
            return reponseQuestion;
        };
        boites.saisie = [this](QWidget*, const QString& invite, const QString& titre) -> std::optional<QString> {
            saisies << titre + QStringLiteral(": ") + invite;
            if (reponses.empty())
                return std::nullopt;
            const std::optional<QString> r = reponses.front();
            reponses.erase(reponses.begin());
            return r;
        };
        boites.fin = [this] { ++fins; };
        boites.choixCouleur = [this](QWidget*, const QColor&, const QString& titre) -> std::optional<QColor> {
            return choixCouleur ? choixCouleur(titre) : std::nullopt;
        };
        boites.fichierAEcrire = [this](QWidget*, const QString& titre, const QString&,
                                       const QString&) -> std::optional<QString> {
            return fichierAEcrire ? fichierAEcrire(titre) : std::nullopt;
        };
        boites.choixListe = [this](QWidget*, const QString&, const QString&,
                                   const QStringList& elements) -> std::optional<int> {
            return choixListe ? choixListe(elements) : std::nullopt;
        };
        fenetre = std::make_unique<Mirado>(etat, dossier.path(), boites);
        // The label editor is modal: unless a test answers it, it is cancelled.
        fenetre->findChild<CommandesEtiquettes*>()->editeur = [](QWidget*, Etiquette&) { return false; };
        fenetre->resize(900, 650);
        fenetre->show();
        QApplication::processEvents();
        fenetre->suisTaille();
        return *fenetre;
    }
};

// A mouse event at `ici`, in the widget's coordinates.
inline void souris(QWidget* w, QEvent::Type type, QPoint ici, Qt::MouseButton bouton, Qt::MouseButtons tenus,
                   Qt::KeyboardModifiers touches = Qt::NoModifier)
{
    QMouseEvent e(type, QPointF(ici), w->mapToGlobal(QPointF(ici)), bouton, tenus, touches);
    QApplication::sendEvent(w, &e);
}

// A left-button drag from a to b in two moves; `pendant` runs before the release.
inline void glisse(QWidget* w, QPoint a, QPoint b, Qt::KeyboardModifiers touches,
                   const std::function<void()>& pendant = {})
{
    souris(w, QEvent::MouseButtonPress, a, Qt::LeftButton, Qt::LeftButton, touches);
    souris(w, QEvent::MouseMove, (a + b) / 2, Qt::NoButton, Qt::LeftButton, touches);
    souris(w, QEvent::MouseMove, b, Qt::NoButton, Qt::LeftButton, touches);
    if (pendant)
        pendant();
    souris(w, QEvent::MouseButtonRelease, b, Qt::LeftButton, Qt::NoButton, touches);
}

}  // namespace velorin::essai
