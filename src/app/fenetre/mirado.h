// MIRADO, the main window: the drawing surface and the command centre. It
// owns nothing of the drawing state (that is the Etat it is given); it holds
// its controls, menus and timers, keeps the picture in a bitmap and wires the
// commands of the menus, the side panels and the dialogs to that state.
//
// The work is spread by what it does:
//   mirado.cpp          start-up, reading of the parameters, calibration,
//                       the redraw of everything, the caption of the
//                       "Déjà tracé" menu;
//   mirado_panneaux.cpp the side column (viewing and plane panels, read-outs);
//   menus.cpp           the construction of the menu tree;
//   menus_actions.cpp   what the menu entries do;
//   menus_points.cpp    the pruning and points dialogs opened from the menus;
//   mirado_trace.cpp    the tracing in progress: timers, Escape, busy state;
//   zone_dessin.*       the drawing area (the bitmap shown, the mouse).
// The dialogs (app/dialogues/) only edit the part of the state they are
// given; the window decides what to draw again afterwards.
//
// The controls are private. Each carries its short name as object name
// ("Command3", "List1", "mnufa" with its index in the property "index"), by
// which the tests reach it.
#pragma once
#include <QElapsedTimer>
#include <QImage>
#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/boites.h"
#include "app/commandes/souris.h"
#include "app/programmes.h"
#include "plot/etat.h"
#include "plot/redessin.h"
#include "view/rotation.h"

class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QTimer;
class QWidget;

namespace velorin {

class CommandesEtiquettes;
class Edition;
class Gestes;
class MenuRendu;
struct GeometrieFenetre;
class Surface;
class ZoneDessin;

// Caption of the window in space mode (the tracing replaces it for a while).
extern const char* const legendeMirado;

class Mirado : public QMainWindow {
    Q_OBJECT
public:
    // Form_Load: folders beside `dossierAppli`, space mode on "Lisurf.lsu",
    // window placement, panels, catalogue menus, then debutravail.
    Mirado(Etat& etat, const QString& dossierAppli, Boites boites = Boites::standard(), QWidget* parent = nullptr);
    ~Mirado() override;

    Etat& etat;
    const Boites boites;
    const QString dossierAppli;
    // The programs started by "Quitter" and the About box; a test replaces them.
    Programmes programmes = Programmes::standard();

    // ---- Start-up, parameters and redraw (mirado.cpp)
    void debutravail();
    void lecdebut(int choix);  // 0 "mem.log", otherwise "memprovi.log"
    void controlfenetre();     // size and ranges check, calibration
    void Command3_Click();     // "O&K": projection, clearing, frame, every curve
    void lecouleurs();         // the default colours after a reading
    const QImage& ecran() const { return image_; }
    // Recreates the bitmap at the drawing area's size and redraws, at once
    // (a resize otherwise waits a moment so that a dragged border redraws
    // only once).
    void suisTaille();

    // ---- Side panels (mirado_panneaux.cpp)
    void Command1_Click();  // "+p"
    void Command2_Click();  // "-p"
    void Command4_Click();  // "Reset" of the viewing panel
    void Command7_Click();  // "Reset" of the plane panel: frame first
    void Option1_Click(int index);
    void Option2_Click(int index);
    void regle(double valeur);
    void bricole(int choix, double valeur = 0);
    void arrangelabel();
    void affviseur();
    void affou();
    void montrePanneau();  // the panel frame of the mode in force

    // ---- Menus (menus.cpp builds the tree, menus_actions.cpp runs it)
    void aflico();
    void afmenu();
    void mnutf_Click(int index);
    std::optional<std::string> crenouveau();  // the new catalogue's name; nothing when cancelled or refused
    void vidage();
    void vide_mnutra();
    void ajoute_mnutra();  // one "Déjà tracé" item per drawn curve
    void mnustp_Click(int index);
    void mnulifi_Click(int index);
    void mnulico_Click(int index);
    void mnufa_Click(int index);
    void mnuf_Click(int index);
    void mnupara_Click(int index);
    void mnucl_Click(int index);
    void mnuct_Click(int index);
    void mnuper_Click(int index);
    void mnuchcol_Click(int index);
    void mnuipo_Click(int index);
    void mnutra_Click(int index);
    void mnuzo_Click(int index);
    void mnuaide_Click(int index);  // 0 the About box, 1 the help browser (menus_aide.cpp)

    // ---- Pruning and points in memory (menus_points.cpp)
    void ouvreMenage();  // "Elaguer fonctions"
    void ouvreLipo();    // "Points disponibles"
    // "Exporter" (commandes/exporter.cpp): 0 the picture on screen, 1 the
    // animation of a full turn.
    void mnuexpo_Click(int index);

    // ---- Sending entries to the drawing (mirado_trace.cpp)
    // Draws catalogue entry `numero` as a new curve. False when nothing was
    // drawn (refused during another tracing, or an error was shown).
    bool envoie(int numero);
    // Draws the entries in order as new curves, coloured by `mode`; stops
    // at an interruption. Returns how many were drawn.
    int envoieSelection(const std::vector<int>& numeros, ModeCouleurs mode);
    bool enTrace() const { return traceEnCours_; }
    // During a tracing: says so and returns true; the command is not run.
    bool refuseSiOccupe();
    void Timer4_Timer();
    void Timer1_Timer();
    CrochetsTrace crochets();

    // ---- Rotation, zoom and the mouse (app/commandes/)
    void Command5_Click(int index);    // one 5-degree step about an axis
    void mnuroti_Click(int index);     // "Tour complet"
    void mnurotan_Click(int index);    // "D'un certain angle entre -pi et pi"
    void Timer2_Timer();               // a tick of the full turn
    void Timer3_Timer();               // a tick of the head rotation
    void grossir(int mode);            // "ZOOM" 1..4
    void dessineloupe(QPoint pixels);  // the rubber rectangle to the mouse
    void demandeloupe(QPoint pixels);  // offer to zoom into it
    void redes(QPoint depart, QPoint arrivee);
    void Form_MouseDown(QPoint pixels, Qt::MouseButton bouton, Qt::KeyboardModifiers touches);
    void Form_MouseMove(QPoint pixels, Qt::MouseButtons boutons, Qt::KeyboardModifiers touches);
    void Form_MouseUp(QPoint pixels, Qt::MouseButton bouton, Qt::KeyboardModifiers touches);
    void molette(QPoint pixels, double crans);
    void Form_KeyUp(int touche);
    void lecturePointeur(QPoint pixels);
    void affibulle(QPoint pixels, const QString& texte);
    void Label2_MouseMove();
    // The redraw of a resize or of the mouse: without the per-point pause.
    void redessineSansPause();
    const EtatRotation& rotation() const { return rotation_; }
    // ---- Figure files (app/commandes/figures.cpp)
    void memorisons();  // asks for a name, writes the figure of the screen
    void lecmemoire();  // lets the user choose a figure, draws it again
    // The figure chooser (folder, filter): the file chosen, or nothing when
    // cancelled. Left empty, the standard file dialog.
    std::function<std::optional<QString>(QWidget* parent, const QString& dossier, const QString& filtre)> choixFigure;

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void creeMenus();
    void creeMenuExporter();  // commandes/exporter.cpp
    void creePanneaux();
    void creeMinuteries();
    void relieFigures();  // "Mémorisation" and "&Mem" (app/commandes/figures.cpp)
    GeometrieFenetre geometrieFigure() const;
    void placeFenetre();
    void nouvelleImage();
    void montreProgres();  // shows what the tracer drew so far
    // The caption "Dans <folder><catalogue>" of the drawn-curves menu, whole
    // when the menu bar has room for it, otherwise shortened in the middle
    // with the whole text as tooltip.
    void ajusteTitreTrace();
    bool barreDeborde();
    // Draws `quoi` on the bitmap with the window's hooks, its labels aside
    // (refused during another tracing). Returns how many curves were drawn.
    int seance(Redessin quoi);
    void choixCoche(std::vector<QAction*>& groupe, int index);
    // Names an entry of a menu array: object name `tableau`, property "index".
    static void nommeArticle(QAction* article, const char* tableau, int index);
    void marqueChoix();              // check marks from the state in force
    bool refuseChoixPendantTrace();  // refuseSiOccupe, then the check marks put back
    QString cheminCatalogue() const;
    void choisitFichier(bool espace, const QAction* article);

    // Side column.
    QGroupBox* Frame1 = nullptr;  // viewing panel (space)
    QGroupBox* Frame2 = nullptr;  // plane panel
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr, *Label4 = nullptr, *Label5 = nullptr,
           *Label6 = nullptr;
    QListWidget* List1 = nullptr;  // values of the fixed coordinate
    QListWidget* List2 = nullptr;  // steps of "+p" / "-p"
    std::array<QRadioButton*, 3> Option1{};
    std::array<QRadioButton*, 7> Option2{};
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr, *Command4 = nullptr, *Command6 = nullptr,
                *Command7 = nullptr;
    std::array<QPushButton*, 6> Command5{};
    QCheckBox *Check1 = nullptr, *Check2 = nullptr;
    QTimer *Timer1 = nullptr, *Timer2 = nullptr, *Timer3 = nullptr, *Timer4 = nullptr, *Timer5 = nullptr,
           *Timer6 = nullptr;

    // Menus.
    QMenu *mnus = nullptr, *mnufo = nullptr, *mnupar = nullptr, *mnut = nullptr, *mnue = nullptr, *mnurota = nullptr,
          *mnuz = nullptr, *mnutrace = nullptr, *mnup = nullptr, *mnumemo = nullptr, *mnua = nullptr;
    QMenu *menuLifi = nullptr, *menuLico = nullptr, *menuGraphe = nullptr;
    std::vector<QAction*> mnustp, mnulifi, mnulico, mnufoc, mnupara, mnucl, mnuct, mnuper, mnuchcol, mnuipo, mnutf,
        mnuf, mnufa, mnurotu, mnuroti, mnurotan, mnuzo, mnutra, mnumemfig, mnuaide, mnuaf;
    QAction *mnupari = nullptr, *mnumet = nullptr, *mnuipr = nullptr, *mnuip = nullptr, *mnuipcop = nullptr;
    QAction* mnufaReste = nullptr;  // "... more in the full list", when over 30 entries
    QMenu* mnuexp = nullptr;        // "Exporter", with its entries mnuexpo
    std::vector<QAction*> mnuexpo;
    QString titreTrace_;  // the whole caption of mnutrace

    void brancheSouris();  // the drawing area's mouse and keys to the commands
    EtatRotation rotation_;
    GesteSouris geste_;
    QPointF enTwips(QPoint pixels) const;

    ZoneDessin* zone_ = nullptr;
    CommandesEtiquettes* etiquettes_ = nullptr;  // the label controls (app/commandes/etiquettes.*)
    MenuRendu* rendu_ = nullptr;                 // the "Rendu" menu (app/rendu/)
    Edition* edition_ = nullptr;                 // the "Édition" menu, undo and redo (app/edition/)
    // Undo puts the state back and rebuilds what shows it, through the window's own routines.
    friend class Edition;
    Gestes* gestes_ = nullptr;                   // the Alt gestures from the "Édition" menu (app/gestes/)
    QScrollArea* defile_ = nullptr;              // scrolls the side column when it is taller than the window
    QWidget* colonne_ = nullptr;                 // the side column that holds the panels
    QImage image_;
    std::unique_ptr<Surface> surface_;
    QTimer* attenteTaille_ = nullptr;  // gathers the resize events of a drag
    bool traceEnCours_ = false;
    bool echap_ = false;              // Escape pressed during the tracing
    bool redessinEnAttente_ = false;  // a resize arrived during a tracing
    QElapsedTimer chrono_;            // time of the tracing in progress
    QElapsedTimer depuisPause_;       // time since the tracer last yielded
};

}  // namespace velorin
