// The read-outs that follow the mouse and the keys: the point under the
// mouse in Label1 (and in the tip bubble Label6, which Timer6 hides), the
// drawing's size in Label5, the last key released, and the tip of Label2.
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTimer>
#include <utility>

#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "view/format_nombre.h"
#include "view/lectures.h"
#include "view/souris.h"

namespace velorin {

namespace {

// The usual virtual key codes: letters, digits and the space are their own
// codes already; the keys that Qt numbers beyond Latin-1 have theirs here,
// and a key that has none shows 0.
int codeDeTouche(int touche)
{
    static const std::pair<int, int> codes[] = {
        {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},         {Qt::Key_Backtab, 9},      {Qt::Key_Clear, 12},
        {Qt::Key_Return, 13},      {Qt::Key_Enter, 13},      {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},
        {Qt::Key_Alt, 18},         {Qt::Key_Pause, 19},      {Qt::Key_CapsLock, 20},    {Qt::Key_Escape, 27},
        {Qt::Key_PageUp, 33},      {Qt::Key_PageDown, 34},   {Qt::Key_End, 35},         {Qt::Key_Home, 36},
        {Qt::Key_Left, 37},        {Qt::Key_Up, 38},         {Qt::Key_Right, 39},       {Qt::Key_Down, 40},
        {Qt::Key_Select, 41},      {Qt::Key_Printer, 42},    {Qt::Key_Execute, 43},     {Qt::Key_Print, 44},
        {Qt::Key_Insert, 45},      {Qt::Key_Delete, 46},     {Qt::Key_Help, 47},        {Qt::Key_Meta, 91},
        {Qt::Key_Menu, 93},        {Qt::Key_Sleep, 95},      {Qt::Key_NumLock, 144},    {Qt::Key_ScrollLock, 145},
        {Qt::Key_Back, 166},       {Qt::Key_Forward, 167},   {Qt::Key_Refresh, 168},    {Qt::Key_Stop, 169},
        {Qt::Key_Search, 170},     {Qt::Key_Favorites, 171}, {Qt::Key_HomePage, 172},   {Qt::Key_VolumeMute, 173},
        {Qt::Key_VolumeDown, 174}, {Qt::Key_VolumeUp, 175},  {Qt::Key_MediaNext, 176},  {Qt::Key_MediaPrevious, 177},
        {Qt::Key_MediaStop, 178},  {Qt::Key_MediaPlay, 179}, {Qt::Key_LaunchMail, 180}, {Qt::Key_LaunchMedia, 181}};
    if (touche < 0x100)
        return touche;
    if (touche >= Qt::Key_F1 && touche <= Qt::Key_F24)
        return 112 + touche - Qt::Key_F1;
    for (const auto& [qt, code] : codes)
        if (qt == touche)
            return code;
    return 0;
}

}  // namespace

void Mirado::Form_KeyUp(int touche)
{
    Label1->setText(QString::fromStdString(formatNombre(codeDeTouche(touche), "000")));
}

void Mirado::lecturePointeur(QPoint pixels)
{
    if (!surface_)
        return;
    const double W = surface_->Width(), H = surface_->Height();
    Label5->setText(QString::fromStdString(texteTaille(W, H)));
    const QPointF ici = enTwips(pixels);
    std::string texte;
    if (etat.fenetre.modePlan) {
        double x = 0, y = 0;
        if (!pointDuPlan(etat.vue, ici.x(), ici.y(), x, y))
            return;
        texte = texteLecturePlan(x, y);
    } else {
        double Px, Py, x, y, z;
        pointPlanProjection(etat.vue, ici.x(), ici.y(), Px, Py);
        int fixe = 0;
        while (fixe < 2 && !Option1[fixe]->isChecked())
            ++fixe;
        const QListWidgetItem* choisi = List1->currentItem();
        const double valeur = choisi ? choisi->text().toDouble() : 0;
        texte = solvons(etat.param, etat.vue, Px, Py, fixe, valeur, x, y, z) ? texteLectureEspace(x, y, z, Px, Py)
                                                                             : texteLectureSansPoint(Px, Py);
    }
    const QString lu = QString::fromStdString(texte);
    const bool lignes = lu.count(QLatin1Char('\n')) != Label1->text().count(QLatin1Char('\n'));
    Label1->setText(lu);
    if (lignes)
        arrangelabel();
    affibulle(pixels, lu);
}

void Mirado::affibulle(QPoint pixels, const QString& texte)
{
    Label6->setText(texte);
    Label6->adjustSize();
    // Below right of the pointer, kept inside the drawing.
    const QSize t = Label6->size();
    const int x = std::max(0, std::min(pixels.x() + 16, zone_->width() - t.width()));
    const int y = std::max(0, std::min(pixels.y() + 16, zone_->height() - t.height()));
    Label6->move(x, y);
    Label6->show();
    Label6->raise();
    Timer6->start();
}

void Mirado::Label2_MouseMove()
{
    Label2->setToolTip(Label2->text());
}

}  // namespace velorin
