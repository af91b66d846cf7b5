// Tracing in the main window: the timers, the hooks that let the tracers
// yield to the event loop, and the sending of entries to the drawing.
//
// While a tracing runs, the window keeps repainting and its timers tick: the
// per-point pause waits on Timer5 by processing events, and without a pause
// the tracer's interruption test yields every few tens of milliseconds.
// Escape stops the tracing. Another drawing command arriving meanwhile is
// refused with a message (a resize waits for the end), so that no tracing
// ever runs inside another on the same state.
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>
#include <QToolTip>

#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "plot/figure.h"
#include "qt/surface_qpainter.h"

namespace velorin {

namespace {

// How long the tracer may run without the window seeing its events.
constexpr int intervalleCession = 40;  // ms
// A drag of the window's border redraws once it has stopped this long.
constexpr int attenteRedimension = 60;  // ms

}  // namespace

void Mirado::creeMinuteries()
{
    auto minuterie = [this](const char* nom, int ms) {
        auto* t = new QTimer(this);
        t->setObjectName(QString::fromUtf8(nom));
        t->setInterval(ms);
        return t;
    };
    // Timer1 has the interval 0, which in this program means "never": it is
    // not started (a Qt timer of 0 ms would fire at every idle moment).
    Timer1 = minuterie("Timer1", 0);
    connect(Timer1, &QTimer::timeout, this, &Mirado::Timer1_Timer);
    Timer2 = minuterie("Timer2", rotaIntervalleTour);  // the full turn
    connect(Timer2, &QTimer::timeout, this, &Mirado::Timer2_Timer);
    Timer3 = minuterie("Timer3", rotaIntervalleTete);  // the head rotation
    connect(Timer3, &QTimer::timeout, this, &Mirado::Timer3_Timer);
    Timer4 = minuterie("Timer4", 100);
    connect(Timer4, &QTimer::timeout, this, &Mirado::Timer4_Timer);
    // Timer5 switches itself off when it fires: the tracers' pause starts it
    // and waits for that. Nothing waits on it before, so it is not started.
    Timer5 = minuterie("Timer5", 200);
    Timer5->setSingleShot(true);
    // Timer6 hides the tip bubble: a bubble stays at most two seconds. It
    // runs only while a bubble is shown (none is yet).
    Timer6 = minuterie("Timer6", 2000);
    Timer6->setSingleShot(true);
    connect(Timer6, &QTimer::timeout, Label6, &QLabel::hide);

    attenteTaille_ = minuterie("attenteTaille", attenteRedimension);
    attenteTaille_->setSingleShot(true);
    connect(attenteTaille_, &QTimer::timeout, this, &Mirado::suisTaille);
    connect(zone_, &ZoneDessin::tailleChangee, attenteTaille_, qOverload<>(&QTimer::start));
}

void Mirado::Timer1_Timer()
{
    EtatFenetre& f = etat.fenetre;
    --f.Cht;
    Label2->setText(QStringLiteral("Cht = %1\nTrt = %2").arg(f.Cht).arg(f.Trt));
}

// The tenths of a second since the request started. Read from a clock
// rather than counted, so that ticks missed while the tracer computes
// between two yields still count.
void Mirado::Timer4_Timer()
{
    etat.fenetre.tics = int(chrono_.elapsed() / 100);
}

void Mirado::montreProgres()
{
    if (surface_)
        surface_->Acheve();
    zone_->update();
}

CrochetsTrace Mirado::crochets()
{
    CrochetsTrace c;
    c.pause = [this](int ms) {
        montreProgres();
        Timer5->setInterval(ms);
        Timer5->start();
        while (Timer5->isActive() && !echap_)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        depuisPause_.restart();
    };
    c.interrompu = [this] {
        if (depuisPause_.elapsed() >= intervalleCession) {
            montreProgres();
            QApplication::processEvents();
            depuisPause_.restart();
        }
        return echap_;
    };
    c.bip = [] { QApplication::beep(); };
    c.debut = [this](const std::string& legende) { setWindowTitle(QString::fromStdString(legende)); };
    return c;
}

bool Mirado::refuseSiOccupe()
{
    if (!traceEnCours_)
        return false;
    boites.message(this, QStringLiteral("Un tracé est en cours : attendez qu'il se termine, "
                                        "ou appuyez sur Échap pour l'interrompre."));
    return true;
}

bool Mirado::eventFilter(QObject* objet, QEvent* evenement)
{
    if (objet == centralWidget() && evenement->type() == QEvent::Resize)
        arrangelabel();  // Form_Resize
    if (objet == menuBar() && evenement->type() == QEvent::Resize)
        ajusteTitreTrace();
    if (objet == menuBar() && evenement->type() == QEvent::ToolTip) {
        // Over the shortened caption of the drawn-curves menu, its whole text.
        const auto* aide = static_cast<QHelpEvent*>(evenement);
        const QAction* titre = mnutrace->menuAction();
        if (menuBar()->actionAt(aide->pos()) == titre && titre->text() != titreTrace_) {
            QToolTip::showText(aide->globalPos(), titreTrace_, menuBar());
            return true;
        }
    }
    if (traceEnCours_ && evenement->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evenement)->key() == Qt::Key_Escape) {
        echap_ = true;
        return true;
    }
    return QMainWindow::eventFilter(objet, evenement);
}

int Mirado::seance(Redessin quoi)
{
    if (refuseSiOccupe())
        return 0;
    if (!surface_)
        nouvelleImage();
    traceEnCours_ = true;
    echap_ = false;
    qApp->installEventFilter(this);
    depuisPause_.start();
    int traces = 0;
    bool formuleIncorrecte = false;
    quoi.etiquettes = false;  // the labels are controls over the picture
    quoi.crochets = crochets();
    quoi.progres = [this] { montreProgres(); };
    // Each curve is timed on its own: tics from 0, Timer4 running.
    quoi.avant = [this] {
        etat.fenetre.tics = 0;
        chrono_.start();
        Timer4->start();
    };
    quoi.apres = [&](const OptionsTrace& options, const ResultatTrace& r) {
        Timer4->stop();
        Timer4_Timer();
        formuleIncorrecte = r.formuleIncorrecte;
        if (r.trace) {
            ++traces;
            setWindowTitle(QString::fromStdString(legendeFinTrace(r.legende, etat.fenetre.tics)));
        }
        if (options.ligne == 0 && r.ligne > 0)
            ajoute_mnutra();
        // A failing request says so at once, before the next one is drawn;
        // the box gets its keys (Escape closes it, it does not stop the
        // sending).
        if (r.erreur) {
            montreProgres();
            qApp->removeEventFilter(this);
            // The program ends after this message: the screen is saved
            // first, and the message says where.
            std::string message = r.erreur.message();
            if (r.formuleIncorrecte) {
                message += '\n';
                message += sauveSecours(etat, r.ligne, geometrieFigure());
            }
            boites.message(this, QString::fromStdString(message));
            qApp->installEventFilter(this);
            depuisPause_.restart();
        }
        echap_ = echap_ || r.interrompu;
        return !echap_ && !formuleIncorrecte;
    };
    static_cast<void>(redessine(etat, *surface_, quoi));
    qApp->removeEventFilter(this);
    traceEnCours_ = false;
    montreProgres();
    if (formuleIncorrecte && boites.fin) {
        // A formula whose brackets the evaluator cannot read ends the
        // program once its message has been read, as it always did.
        boites.fin();
        return traces;
    }
    if (redessinEnAttente_) {
        redessinEnAttente_ = false;
        QTimer::singleShot(0, this, &Mirado::suisTaille);
    }
    return traces;
}

int Mirado::envoieSelection(const std::vector<int>& numeros, ModeCouleurs mode)
{
    return seance({.efface = false, .repere = false, .entrees = numeros, .couleurs = mode});
}

bool Mirado::envoie(int numero)
{
    return envoieSelection({numero}, ModeCouleurs::Unique) > 0;
}

}  // namespace velorin
