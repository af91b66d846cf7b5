#include "app/rendu/menu_rendu.h"

#include <QAction>
#include <QActionGroup>
#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "engine/nombres.h"

namespace velorin {

namespace {

constexpr double anglesProposes[] = {30, 45, 60};
constexpr double coefsProposes[] = {0.5, 0.6, 0.7};

QAction* article(QMenu* menu, const char* legende, const char* nom, int index, bool cochable = true)
{
    QAction* a = menu->addAction(QString::fromUtf8(legende));
    a->setObjectName(QString::fromUtf8(nom));
    a->setProperty("index", index);
    a->setCheckable(cochable);
    return a;
}

}  // namespace

MenuRendu::MenuRendu(QMainWindow& fenetre, QMenu* avant, Etat& etat, const Boites& boites,
                     std::function<bool()> occupe, std::function<void()> redessine)
    : QObject(&fenetre), fenetre_(fenetre), etat_(etat), boites_(boites), occupe_(std::move(occupe)),
      redessine_(std::move(redessine))
{
    menu_ = new QMenu(QStringLiteral("Rendu"), &fenetre);
    menu_->setObjectName(QStringLiteral("mnurendu"));
    fenetre.menuBar()->insertMenu(avant ? avant->menuAction() : nullptr, menu_);

    const char* legendes[] = {"Fil de fer", "Parties cachées en pointillés", "Parties cachées effacées",
                              "Faces ombrées"};
    for (int i = 0; i < 4; ++i) {
        QAction* a = article(menu_, legendes[i], "mnurendus", i);
        connect(a, &QAction::triggered, this, [this, i] { modifie([i](Rendu& r) { r.style = StyleRendu(i); }); });
        styles_.push_back(a);
    }
    menu_->addSeparator();
    cavaliere_ = article(menu_, "Perspective cavalière", "mnucav", 0);
    connect(cavaliere_, &QAction::triggered, this, [this] { modifie([](Rendu& r) { r.cavaliere = !r.cavaliere; }); });
    QMenu* angle = menu_->addMenu(QStringLiteral("Angle de fuite"));
    for (int i = 0; i < 3; ++i) {
        const double v = anglesProposes[i];
        QAction* a = article(angle, (std::to_string(int(v)) + "°").c_str(), "mnucavangle", i);
        connect(a, &QAction::triggered, this, [this, v] { modifie([v](Rendu& r) { r.angleCavaliere = v; }); });
        angles_.push_back(a);
    }
    angles_.push_back(article(angle, "Autre angle…", "mnucavangle", 3));
    connect(angles_.back(), &QAction::triggered, this,
            [this] { saisis("Angle de fuite, en degrés (plus de 0, moins de 90) :", 0, 90, &Rendu::angleCavaliere); });
    QMenu* coef = menu_->addMenu(QStringLiteral("Coefficient de réduction"));
    for (int i = 0; i < 3; ++i) {
        const double v = coefsProposes[i];
        QAction* a = article(coef, texteValeur(v).c_str(), "mnucavcoef", i);
        connect(a, &QAction::triggered, this, [this, v] { modifie([v](Rendu& r) { r.coefCavaliere = v; }); });
        coefs_.push_back(a);
    }
    coefs_.push_back(article(coef, "Autre coefficient…", "mnucavcoef", 3));
    connect(coefs_.back(), &QAction::triggered, this,
            [this] { saisis("Coefficient de réduction (plus de 0, au plus 1) :", 0, 1, &Rendu::coefCavaliere); });
    menu_->addSeparator();
    quadrillage_ = article(menu_, "Quadrillage", "mnuquadrillage", 0);
    connect(quadrillage_, &QAction::triggered, this,
            [this] { modifie([](Rendu& r) { r.quadrillage = !r.quadrillage; }); });
    gradue_ = article(menu_, "Repère gradué", "mnugradue", 0);
    connect(gradue_, &QAction::triggered, this, [this] { modifie([](Rendu& r) { r.repereGradue = !r.repereGradue; }); });
    // One choice of each list: shown as such (radio marks).
    for (const auto* liste : {&styles_, &angles_, &coefs_}) {
        auto* groupe = new QActionGroup(this);
        for (QAction* a : *liste)
            groupe->addAction(a);
    }
    marque();
}

std::string MenuRendu::chemin() const
{
    return etat_.fenetre.dossierCourbes + nomFichierRendu();
}

void MenuRendu::charge()
{
    const std::string fichier = chemin();
    if (QFile::exists(QString::fromStdString(fichier))) {
        if (auto erreur = lisRendu(fichier, etat_.rendu))
            boites_.message(&fenetre_, QString::fromStdString(erreur.message()));
    }
    marque();
}

void MenuRendu::modifie(const std::function<void(Rendu&)>& change)
{
    if (occupe_()) {
        marque();
        return;
    }
    change(etat_.rendu);
    marque();
    if (auto erreur = ecrisRendu(chemin(), etat_.rendu))
        boites_.message(&fenetre_, QString::fromStdString(erreur.message()) +
                                       QStringLiteral("\nLe rendu choisi vaut pour cette séance."));
    redessine_();
}

void MenuRendu::saisis(const char* invite, double bas, double haut, double Rendu::*membre)
{
    if (occupe_()) {
        marque();
        return;
    }
    const std::optional<QString> texte =
        boites_.saisie ? boites_.saisie(&fenetre_, QString::fromUtf8(invite), QStringLiteral("Perspective cavalière"))
                       : std::nullopt;
    marque();
    if (!texte)
        return;
    double v;
    const std::string lu = texte->trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toStdString();
    if (!lisValeurExacte(lu, v) || v <= bas || v > haut || (v == haut && haut == 90)) {
        boites_.message(&fenetre_, QStringLiteral("« %1 » ne convient pas. %2")
                                       .arg(*texte, QString::fromUtf8(invite).chopped(2)));
        return;
    }
    modifie([&](Rendu& r) { r.*membre = v; });
}

void MenuRendu::marque()
{
    const Rendu& r = etat_.rendu;
    for (std::size_t i = 0; i < styles_.size(); ++i)
        styles_[i]->setChecked(int(i) == int(r.style));
    cavaliere_->setChecked(r.cavaliere);
    bool propose = false;
    for (int i = 0; i < 3; ++i) {
        angles_[i]->setChecked(r.angleCavaliere == anglesProposes[i]);
        propose |= r.angleCavaliere == anglesProposes[i];
    }
    angles_[3]->setChecked(!propose);
    propose = false;
    for (int i = 0; i < 3; ++i) {
        coefs_[i]->setChecked(r.coefCavaliere == coefsProposes[i]);
        propose |= r.coefCavaliere == coefsProposes[i];
    }
    coefs_[3]->setChecked(!propose);
    quadrillage_->setChecked(r.quadrillage);
    gradue_->setChecked(r.repereGradue);
}

}  // namespace velorin
