// The "Exporter" menu: its place; the picture with its labels reaches a PNG, SVG, PDF or TikZ file; the
// turn and step chosen reach the full turn. The file formats and the turn are the qt module's. The
// menu IMPRIMER: its entries reach the page (read back from the PDF written), with and without a
// printer, in the menu's orientation; the screen copy reaches the clipboard. The page is the core's.
// The labels over the drawing: creation, the right button's three boxes, tip, drag, deletion by a
// double click, the text label editor. What the answers mean and the compaction are the label module's.
// Figure files: "&Mem" and "Sauver cet écran" reach the writer with the name asked; "Lire un écran
// mémorisé" reaches the reader and redraws (curves, labels, place, panel). The format is the core's.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QDoubleSpinBox>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QImageReader>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include "app/commandes/etiquettes.h"
#include "app/commandes/impression.h"
#include "app/dialogues/etiquette.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "plot/ecran.h"
#include "plot/etiquettes.h"
#include "plot/impression.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"
#include "view/rotation.h"

namespace velorin::essai {
namespace {

QImage rgb(const QImage& i)
{
    return i.convertToFormat(QImage::Format_RGB32);
}

// `n` drawn circles; the file dialog answers `sortie` (nothing: cancelled), the list `tour`.
struct BancExport : Banc {
    Mirado* m = nullptr;
    const char* sortie = nullptr;
    int tour = 0;  // -1: cancelled
    QStringList proposes;
    QString titre;
    explicit BancExport(int n)
    {
        m = &demarre(n);
        for (int i = 1; i <= n; ++i)
            EXPECT_TRUE(m->envoie(i));
        fichierAEcrire = [this](const QString& t) -> std::optional<QString> {
            titre = t;
            return sortie ? std::optional(chemin(QString::fromUtf8(sortie))) : std::nullopt;
        };
        choixListe = [this](const QStringList& l) {
            return proposes = l, tour < 0 ? std::nullopt : std::optional(tour);
        };
    }
    QStringList fichiers() const { return QDir(dossier.path()).entryList(QDir::Files, QDir::Name); }
};

// The menu's place and entries; each entry's file dialog, and what it writes or says.
TEST(Exporter, MenuImageDeLEcranEtRefus)
{
    // mnuexpo; the list's answer (-1: cancelled); the file dialog's (nullptr: cancelled) and its title
    // ("" not shown); the file expected (or nullptr); part of the message ("" none).
    struct Cas {
        int article, tour;
        const char *reponse, *titre, *ecrit, *message;
    };
    const char *const image = "Image de l'écran", *const tour = "Animation du tour complet",
                      *const tikz = "Figure LaTeX (TikZ)";
    BancExport b(1);
    QStringList titres;
    for (const QAction* a : b.m->menuBar()->actions())
        titres << a->text();
    EXPECT_EQ(titres.mid(titres.size() - 5).join(QLatin1Char('|')), QStringLiteral("Mémorisation|Exporter|Édition|Rendu|?"));
    EXPECT_EQ(article(*b.m, "mnuexpo", 0)->text() + '|' + article(*b.m, "mnuexpo", 1)->text() + '|' +
                  article(*b.m, "mnuexpo", 2)->text(),
              QStringLiteral("Image de l'écran…|Animation du tour complet…|Figure LaTeX (TikZ)…"));
    // A label over the drawing is part of the picture written.
    b.etat.etiquettes.lb.push_back(
        {.texte = "Sommet", .couleur = 0x00FFFF, .gauche = 1500, .haut = 1500, .visible = true});
    for (const Cas& c :
         {Cas{0, 0, "ecran", image, "ecran.png", ""},  // the extension is added
          Cas{0, 0, "copie.svg", image, "copie.svg", ""}, Cas{0, 0, "copie.pdf", image, "copie.pdf", ""},
          Cas{0, 0, "copie.jpg", image, nullptr, "en PNG, SVG ou PDF : nommez-la par exemple « copie.png »"},
          Cas{0, 0, "absent/e.png", image, nullptr, "absent » n'existe pas"}, Cas{0, 0, nullptr, image, nullptr, ""},
          Cas{1, -1, "a.gif", "", nullptr, ""}, Cas{1, 0, nullptr, tour, nullptr, ""},
          Cas{1, 0, "absent/a.gif", tour, nullptr, "absent » n'existe pas"},
          Cas{2, 0, "fig", tikz, "fig.tex", ""}, Cas{2, 0, "fig.png", tikz, nullptr, "par exemple « fig.tex »"}}) {
        b.tour = c.tour, b.sortie = c.reponse;
        b.titre.clear();
        b.messages.clear();
        QStringList attendus = b.fichiers();
        b.reponses = {QStringLiteral("9cm")};  // the TikZ figure's width
        article(*b.m, "mnuexpo", c.article)->trigger();
        EXPECT_EQ(b.titre, QString::fromUtf8(c.titre)) << c.titre;
        EXPECT_TRUE(*c.message ? b.messages.size() == 1 && b.messages[0].contains(QString::fromUtf8(c.message))
                               : b.messages.isEmpty())
            << b.messages.join('|').toStdString();
        if (c.ecrit)
            attendus << QString::fromUtf8(c.ecrit);
        attendus.sort();
        ASSERT_EQ(b.fichiers(), attendus);
        if (!c.ecrit)
            continue;
        const QByteArray octets = QByteArray::fromStdString(lisFichier(b.chemin(c.ecrit).toStdString()));
        if (QByteArray(c.ecrit).endsWith(".png")) {
            EXPECT_EQ(rgb(QImage::fromData(octets)), rgb(imageAvecEtiquettes(*b.m)));
        } else {  // lines and texts drawn again, the label's among them
            EXPECT_TRUE(octets.startsWith("%PDF") ||
                        ((octets.contains("<polyline") || octets.contains("rectangle (9,")) && octets.contains("Sommet")));
        }
    }
}

// The turn chosen in the list and the step in List2 reach the export: as many pictures as the turn's
// redraws, at the window's size; an axis turn's last picture is the window's (it starts from the
// window's rotation); the window's values and picture stay.
TEST(Exporter, AnimationDuTourComplet)
{
    struct Cas {  // in the "Tour complet" menu, the file, the row chosen in the step list
        int tour;
        const char* sortie;
        int rangPas;
    };
    for (const Cas& c : {Cas{7, "tete.gif", 2}, Cas{3, "images/t_%03d.png", 0}}) {
        BancExport b(2);
        Mirado& m = *b.m;
        QDir().mkpath(b.chemin(QStringLiteral("images")));
        auto* pas = controle<QListWidget>(m, "List2");
        pas->setCurrentRow(c.rangPas);
        b.tour = c.tour, b.sortie = c.sortie;
        const Parametres avant = m.etat.param;
        const QImage ecran = m.ecran().copy();
        article(m, "mnuexpo", 1)->trigger();
        ASSERT_EQ(b.proposes.size(), nbToursComplets);
        EXPECT_EQ(b.proposes[c.tour], article(m, "mnuroti", c.tour)->text());
        const int n =
            int(suiteDuTour(avant, EtatRotation{}, c.tour, pas->currentItem()->text().toDouble()).vues.size());
        ASSERT_EQ(b.messages.size(), 1);
        EXPECT_TRUE(b.messages[0].startsWith(QStringLiteral("Animation écrite : %1 images").arg(n)))
            << b.messages[0].toStdString();
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(avant));
        EXPECT_EQ(m.ecran(), ecran);
        QImageReader lu(b.chemin(QString::asprintf(c.sortie, n)));  // the GIF, or the last numbered picture
        EXPECT_EQ(lu.size(), ecran.size());
        EXPECT_TRUE(QByteArray(c.sortie).endsWith(".gif") ? lu.imageCount() == n : rgb(lu.read()) == rgb(ecran));
    }
}

// What a PDF tool (pdftotext, pdfinfo) prints about a file.
QString sortieDe(const char* outil, const QStringList& arguments)
{
    QProcess p;
    p.start(QString::fromLatin1(outil), arguments);
    EXPECT_TRUE(p.waitForFinished(-1));
    return QString::fromUtf8(p.readAllStandardOutput());
}

TEST(Impression, MenuImprimerAvecEtSansImprimanteEtCopieDEcran)
{
    BancExport d(2);
    d.etat.etiquettes.lb.push_back(
        {.texte = "Cercles", .couleur = 0x00FFFF, .gauche = 600, .haut = 900, .visible = true});
    // PDF named, mnuipo (0 "Portrait", 1 "Paysage"), printer, dialog accepted, file chosen; entry
    // triggered, page written, hooks asked; what the user is told.
    struct Cas {
        const char* fichier;
        int orientation;
        bool installee, accepte, nomme;
        const char* article;
        bool ecrit;
        int dialogues, apercus, choixFichier;
        const char* message;
    };
    const char* const sans = "Aucune imprimante n'est installée : le graphique est enregistré dans ";
    const QDate d0 = QDate::currentDate();
    const QString aujourdhui = QString::fromStdString(dateFrancaise({d0.year(), d0.month(), d0.day(), 0, 0, 0}));
    for (const Cas& c : {Cas{"graphique.pdf", 1, false, true, true, "mnuip", true, 0, 0, 1, sans},  // no printer
                         Cas{"graphique.pdf", 0, false, true, true, "mnuip", true, 0, 0, 1, sans},
                         Cas{"graphique.pdf", 1, false, true, false, "mnuip", false, 0, 0, 1, ""},  // file refused
                         Cas{"absent/graphique.pdf", 1, false, true, true, "mnuip", false, 0, 0, 1,
                             "graphique.pdf » : le dossier n'existe pas"},
                         Cas{"graphique.pdf", 0, true, true, true, "mnuip", true, 1, 0, 0, ""},    // dialog accepted
                         Cas{"graphique.pdf", 1, true, false, true, "mnuip", false, 1, 0, 0, ""},  // dialog cancelled
                         Cas{"graphique.pdf", 1, true, true, true, "mnuipap", true, 0, 1, 0, ""}}) {  // preview
        const QString pdf = d.chemin(QString::fromUtf8(c.fichier)),
                      cas = QString("%1 %2 %3").arg(c.fichier).arg(c.installee).arg(c.article);
        QFile::remove(pdf);
        d.messages.clear();
        int dialogues = 0, apercus = 0, choixFichier = 0;
        QPageLayout::Orientation orientation = QPageLayout::Portrait;
        auto versPdf = [&](QPrinter& p) {  // the print dialog and the preview write into `pdf`
            orientation = p.pageLayout().orientation();
            p.setOutputFormat(QPrinter::PdfFormat);
            p.setOutputFileName(pdf);
        };
        Imprimantes i;
        i.installee = [&] { return c.installee; };
        i.dialogue = [&](QWidget*, QPrinter& p) { return ++dialogues, versPdf(p), c.accepte; };
        i.apercu = [&](QWidget*, QPrinter& p, const std::function<void(QPrinter&)>& dessine) {
            ++apercus, versPdf(p), dessine(p);
        };
        i.fichierPdf = [&](QWidget*, const QString&) {
            return ++choixFichier, c.nomme ? std::optional(pdf) : std::nullopt;
        };
        installeImpression(*d.m, i);
        article(*d.m, "mnuipo", c.orientation)->trigger();
        controle<QAction>(*d.m, QString::fromUtf8(c.article))->trigger();
        EXPECT_EQ(std::tuple(dialogues, apercus, choixFichier), std::tuple(c.dialogues, c.apercus, c.choixFichier))
            << cas.toStdString();
        EXPECT_TRUE(!(c.dialogues + c.apercus) ||
                    orientation == (c.orientation ? QPageLayout::Landscape : QPageLayout::Portrait));
        ASSERT_EQ(QFileInfo::exists(pdf), c.ecrit) << cas.toStdString();
        EXPECT_TRUE(d.messages.join('|').contains(QString::fromUtf8(c.message))) << d.messages.join('|').toStdString();
        EXPECT_EQ(d.messages.size(), *c.message ? 1 : 0);
        if (!c.ecrit)
            continue;
        // The page, its footer dated now (blanks compared loosely), in the orientation asked.
        const QString texte = sortieDe("pdftotext", {pdf, QStringLiteral("-")}).simplified();
        EXPECT_TRUE(texte.contains("TRACE DES COURBES") && texte.contains("imprimé le " + aujourdhui))
            << texte.toStdString();
        const auto page = QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+) pts"))
                              .match(sortieDe("pdfinfo", {pdf}));
        ASSERT_TRUE(page.hasMatch());
        EXPECT_EQ(page.captured(1).toDouble() > page.captured(2).toDouble(), c.orientation == 1);
    }
    // "Copie d'écran": the picture with its label on the clipboard, the window's picture unchanged.
    d.messages.clear();
    QGuiApplication::clipboard()->clear();
    controle<QAction>(*d.m, "mnuipcop")->trigger();
    const QImage image = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    EXPECT_NE(image, d.m->ecran().convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(image, imageAvecEtiquettes(*d.m).convertToFormat(QImage::Format_RGB32));
    ASSERT_EQ(d.messages.size(), 1);
    EXPECT_TRUE(d.messages[0].startsWith(QStringLiteral("Le dessin est copié dans le presse-papiers")));
}

// The window with `courbes` circles (none: no catalogue written); figures are chosen in `choix`.
struct BancEtiquettes : Banc {
    Mirado* m;
    CommandesEtiquettes* commandes;
    QStringList choix;  // "folder|filter" of each chooser shown
    explicit BancEtiquettes(int courbes = -1)
        : m(courbes < 0 ? &demarre() : &demarre(courbes)), commandes(m->findChild<CommandesEtiquettes*>())
    {
    }
    // Right button + Alt at `ou`; the editor types `texte` (nothing: cancels).
    void cree(QPoint ou, std::optional<std::string> texte)
    {
        commandes->editeur = [texte](QWidget*, Etiquette& l) { return l.texte = texte.value_or(l.texte), bool(texte); };
        souris(m->findChild<ZoneDessin*>(), QEvent::MouseButtonRelease, ou, Qt::RightButton, Qt::NoButton,
               Qt::AltModifier);
    }
    Lb3* lb(int index) const { return commandes->controle(index); }
    QString figure(const char* nom) const { return QString::fromStdString(etat.fenetre.dossierFig) + nom + ".fig"; }
    // "Lire un écran mémorisé", the chooser answering `choisi`.
    void lis(const std::optional<QString>& choisi)
    {
        m->choixFigure = [this, choisi](QWidget*, const QString& d, const QString& f) {
            return choix << d + '|' + f, choisi;
        };
        messages.clear();
        article(*m, "mnumemfig", 1)->trigger();
    }
};

TEST(EtiquettesFenetre, CreationGlisserEtDoubleClic)
{
    BancEtiquettes b;
    b.cree({40, 30}, "A");
    b.cree({90, 60}, std::nullopt);  // cancelled
    b.cree({90, 60}, "");            // nothing typed
    b.cree({200, 40}, "C");
    ASSERT_EQ(b.etat.etiquettes.nombre(), 2);
    EXPECT_EQ(b.etat.etiquettes.lb[1].gauche, 40 * 15);
    EXPECT_EQ(b.etat.etiquettes.lb[1].couleur, std::int32_t(couleursRepere(b.etat).axes));  // not the template's
    EXPECT_EQ(std::tuple(b.lb(1)->text(), b.lb(1)->pos(), b.lb(1)->isVisible(), b.lb(0)->isVisible()),
              std::tuple(QStringLiteral("A"), QPoint(40, 30), true, false));
    souris(b.lb(2), QEvent::MouseMove, {1, 1}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(b.lb(2)->toolTip().toStdString(), bulleEtiquette(b.etat.etiquettes, 2));
    Lb3* c = b.lb(1);  // dragged: the state follows the control
    souris(c, QEvent::MouseButtonPress, {3, 3}, Qt::LeftButton, Qt::LeftButton);
    souris(c, QEvent::MouseMove, {23, -7}, Qt::NoButton, Qt::LeftButton);
    souris(c, QEvent::MouseButtonRelease, {23, -7}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(c->pos(), QPoint(60, 20));
    EXPECT_EQ(std::pair(b.etat.etiquettes.lb[1].gauche, b.etat.etiquettes.lb[1].haut), std::pair(60.0F * 15, 20.0F * 15));
    // A double click deletes: the controls are those of the compacted list.
    souris(b.lb(1), QEvent::MouseButtonDblClick, {1, 1}, Qt::LeftButton, Qt::LeftButton);
    ASSERT_EQ(b.etat.etiquettes.nombre(), 1);
    EXPECT_EQ(std::pair(b.lb(1)->text(), b.lb(1)->pos()), std::pair(QStringLiteral("C"), QPoint(200, 40)));
    EXPECT_EQ(b.lb(2), nullptr);
    b.m->vidage();  // forgetting the drawing removes them
    EXPECT_EQ(b.etat.etiquettes.nombre(), 0);
    EXPECT_EQ(b.lb(1), nullptr);
}

TEST(EtiquettesFenetre, BoutonDroitCouleurPoliceTaille)
{
    using R = std::optional<QString>;
    for (const auto& [touches, reponse, titre] : {std::tuple{Qt::NoModifier, R("2"), "Couleur du texte de ce label"},
                                                  std::tuple{Qt::NoModifier, R(), "Couleur du texte de ce label"},
                                                  std::tuple{Qt::ShiftModifier, R("1"), "Police du texte de ce label"},
                                                  std::tuple{Qt::ControlModifier, R("18"), "taille actuelle : 10"}}) {
        BancEtiquettes b;
        b.cree({50, 50}, "abc");
        Etiquette attendue = b.etat.etiquettes.lb[1];
        const std::string r = reponse.value_or(QString()).toStdString();
        if (reponse && touches == Qt::NoModifier)
            attendue.couleur = std::int32_t(couleurChoisie(r, b.etat.defaut, couleursRepere(b.etat).axes));
        if (touches == Qt::ShiftModifier)
            attendue.police = *policeChoisie(r);
        if (touches == Qt::ControlModifier)
            attendue.taille = *tailleChoisie(r);
        b.reponses = {reponse};
        souris(b.lb(1), QEvent::MouseButtonRelease, {2, 2}, Qt::RightButton, Qt::NoButton, touches);
        ASSERT_EQ(b.saisies.size(), 1);
        EXPECT_TRUE(b.saisies[0].startsWith(QString::fromUtf8(titre))) << titre;
        const Etiquette& l = b.etat.etiquettes.lb[1];
        EXPECT_EQ(std::tuple(l.couleur, l.police, l.taille),
                  std::tuple(attendue.couleur, attendue.police, attendue.taille));
        // The control shows what the state holds.
        EXPECT_EQ(std::tuple(b.lb(1)->font().family(), b.lb(1)->font().pointSizeF(),
                             b.lb(1)->palette().color(QPalette::WindowText)),
                  std::tuple(policeEtiquette(l).family(), double(l.taille), couleurQt(Couleur(l.couleur))));
    }
}

TEST(EtiquettesFenetre, EditeurDeTexte)
{
    using C = std::optional<QColor>;  // OK pressed, the chooser's answer
    for (const auto& [v, couleur] :
         {std::pair{true, C(QColor(0, 0, 255))}, std::pair{true, C()}, std::pair{false, C(QColor(0, 0, 255))}}) {
        Etiquette l;
        l.couleur = 0x00FF00;
        const Etiquette avant = l;
        const std::int32_t attendue = couleur ? 0xFF0000 : 0x00FF00;
        Boites boites;
        boites.choixCouleur = [&](QWidget*, const QColor&, const QString&) { return couleur; };
        EditeurEtiquette d(l, boites);
        controle<QLineEdit>(d, "Text1")->setText(QStringLiteral("Été"));
        controle<QComboBox>(d, "Combo1")->setCurrentText(QStringLiteral("Courier New"));
        controle<QDoubleSpinBox>(d, "Text2")->setValue(14);
        controle<QCheckBox>(d, "Check1")->setChecked(true);
        controle<QCheckBox>(d, "Check3")->setChecked(true);
        controle<QPushButton>(d, "Command3")->click();
        const QLabel* apercu = controle<QLabel>(d, "Label1");
        EXPECT_EQ(apercu->text(), QStringLiteral("Été"));
        EXPECT_TRUE(apercu->font().bold() && apercu->font().underline());
        EXPECT_EQ(apercu->palette().color(QPalette::WindowText), couleurQt(Couleur(attendue)));
        controle<QPushButton>(d, v ? "Command1" : "Command2")->click();
        EXPECT_EQ(std::tuple(l.texte, l.police, l.taille, l.couleur),
                  v ? std::tuple(std::string("Été"), std::string("Courier New"), 14.0F, attendue)
                    : std::tuple(avant.texte, avant.police, avant.taille, std::int32_t(0x00FF00)));
        EXPECT_EQ(std::tuple(l.gras, l.italique, l.souligne), std::tuple(v, false, v));
    }
}

TEST(FiguresFenetre, SauverRelireAnnulerAbimeePlane)
{
    BancEtiquettes b(3);
    Mirado& m = *b.m;
    m.resize(760, 540);  // whole on the test screen, so read back as it is
    m.suisTaille();
    m.envoie(1);
    m.envoie(3);
    b.cree({30, 40}, "Sommet");
    b.cree({200, 90}, "Pied");
    const QImage dessin = m.ecran().copy();
    const QRect place = m.geometry();
    b.reponses = {QStringLiteral("essai")};
    controle<QPushButton>(m, "Command6")->click();
    const QString dossier = QString::fromStdString(b.etat.fenetre.dossierFig);
    EXPECT_EQ(b.saisies,
              QStringList{"mise en mémoire dans " + dossier + ": Entrez un nom simple pour mémoriser cette figure"});
    ASSERT_TRUE(QFile::exists(b.figure("essai")));
    EXPECT_TRUE(b.messages.isEmpty());
    m.vidage();  // everything forgotten and the window moved, then the figure read back
    m.Command3_Click();
    m.resize(700, 500);
    b.lis(b.figure("essai"));
    EXPECT_EQ(b.choix, QStringList{dossier + "|Figures (*.fig)"});
    EXPECT_EQ(b.messages, QStringList{"Nre de fonctions 2\nNbre de labels 2"});
    EXPECT_EQ(articles(m, "mnutra").size(), 3U);
    EXPECT_EQ(m.geometry(), place);
    EXPECT_EQ(m.ecran(), dessin);
    const std::pair<QPoint, QString> etiquettes[] = {{{30, 40}, "Sommet"}, {{200, 90}, "Pied"}};
    for (int k = 1; k <= 2; ++k) {
        const Lb3* c = b.commandes->controle(k);
        ASSERT_NE(c, nullptr);
        EXPECT_EQ(std::tuple(c->pos(), c->text(), c->isVisible()), std::tuple_cat(etiquettes[k - 1], std::tuple(true)));
    }
    EXPECT_FALSE(b.commandes->controle(0)->isVisible());  // the template label stays hidden
    // "Sauver cet écran"; read cancelled, the labels are gone and the drawing stays; a damaged file is
    // said with its name; a plane figure shows the plane panel.
    b.reponses = {QStringLiteral("sauve")};
    article(m, "mnumemfig", 0)->trigger();
    QFile f(b.figure("sauve"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QList<QByteArray> lignes = f.readAll().split('\n');
    ASSERT_GE(lignes.size(), 6);
    b.lis(std::nullopt);
    EXPECT_EQ(std::tuple(b.etat.etiquettes.nombre(), b.etat.courbes.nbCourbes, b.messages),
              std::tuple(0, 2, QStringList()));
    b.ecrisFichier(QStringLiteral("Espace_fig/abime.fig"), lignes.mid(0, 6).join('\n') + "\npas un nombre\r\n");
    b.lis(b.figure("abime"));  // the reader's refusal (its wording is the figure module's)
    EXPECT_TRUE(b.messages.join('|').contains(QStringLiteral("abime.fig")))
        << b.messages.join('|').toStdString();
    // Line 1 "True" (plane), no curve and no label on line 5.
    const QList<QByteArray> champs = lignes[4].simplified().split(' ');
    ASSERT_EQ(champs.size(), 4);
    b.ecrisFichier(QStringLiteral("Espace_fig/plan.fig"), "True\r\n" + lignes.mid(1, 3).join('\n') + "\n 0  0 " +
                                                              champs[2] + ' ' + champs[3] + " \r\n" + lignes[5] + '\n');
    b.lis(b.figure("plan"));
    EXPECT_FALSE(b.etat.fenetre.modeEspace);
    EXPECT_TRUE(controle<QGroupBox>(m, "Frame2")->isVisible());
    EXPECT_EQ(b.etat.courbes.nbCourbes, 0);
    // A curve that cannot be drawn is said once, after the counts, though the box lets the resize through.
    b.pendantMessage = [] { QEventLoop l; QTimer::singleShot(300, &l, &QEventLoop::quit); l.exec(); };
    QList<QByteArray> zero = lignes;
    zero[6 + 30] = " 0 \r";  // the entry number of curve 1
    b.ecrisFichier(QStringLiteral("Espace_fig/zero.fig"), zero.join('\n'));
    m.resize(700, 500);
    b.lis(b.chemin(QStringLiteral("Espace_fig/zero.fig")));
    EXPECT_TRUE(b.messages.size() == 2 && b.messages[0].startsWith("Nre de fonctions 2") &&
                b.messages[1].startsWith("L'entrée n° 0 n'existe pas"))
        << b.messages.join('|').toStdString();
}

}  // namespace
}  // namespace velorin::essai
