#include "qt/surface_qpainter.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <sys/mman.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velorin {

namespace {

constexpr double twipsParPouce = 1440;
constexpr int piecesLargesMax = 8;    // points of a wide polyline piece
constexpr int piecesFinesMax = 4096;  // points of a 1-pixel polyline

}  // namespace

QColor couleurQt(Couleur c)
{
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

namespace {

// A large picture's memory, asked of the system in huge pages where it
// gives them: touched for the first time (the picture is filled at once),
// a few huge pages cost far less than thousands of ordinary ones.
constexpr std::size_t grandePage = std::size_t(2) << 20;

struct ZoneImage {
    void* debut;
    std::size_t taille;
};

void libereZone(void* zone)
{
    auto* z = static_cast<ZoneImage*>(zone);
    munmap(z->debut, z->taille);
    delete z;
}

// An image of w x h pixels in format RGB32 over such memory, or a null
// image when there is none (too small to gain anything, or refused).
QImage imageEnGrandesPages(int w, int h)
{
    const std::size_t octets = std::size_t(w) * std::size_t(h) * 4;
    if (w <= 0 || h <= 0 || octets < 2 * grandePage || octets > std::size_t(1) << 40)
        return {};
    const std::size_t taille = octets + grandePage;
    void* debut = mmap(nullptr, taille, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (debut == MAP_FAILED)
        return {};
    // The pixels start on a huge page boundary.
    auto* pixels = reinterpret_cast<uchar*>((reinterpret_cast<std::uintptr_t>(debut) + grandePage - 1) &
                                            ~(std::uintptr_t(grandePage) - 1));
#ifdef MADV_HUGEPAGE
    madvise(pixels, octets, MADV_HUGEPAGE);
#endif
    auto* zone = new ZoneImage{debut, taille};
    QImage image(pixels, w, h, qsizetype(w) * 4, QImage::Format_RGB32, libereZone, zone);
    if (image.isNull())
        libereZone(zone);
    return image;
}

}  // namespace

QImage imagePourSurface(int largeurPx, int hauteurPx, qreal ratio)
{
    const int w = qRound(largeurPx * ratio), h = qRound(hauteurPx * ratio);
    QImage image = imageEnGrandesPages(w, h);
    if (image.isNull())
        image = QImage(w, h, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    return image;
}

SurfaceQPainter::SurfaceQPainter(QPaintDevice& device)
    : SurfaceQPainter(device, device.width() / device.devicePixelRatioF() * twipsParPouce / device.logicalDpiX(),
                      device.height() / device.devicePixelRatioF() * twipsParPouce / device.logicalDpiY())
{ }

SurfaceQPainter::SurfaceQPainter(QPaintDevice& device, double largeurTwips, double hauteurTwips)
    : propre_(std::make_unique<QPainter>(&device)), painter_(propre_.get()), largeur_(largeurTwips),
      hauteur_(hauteurTwips)
{
    prepare(device);
}

SurfaceQPainter::SurfaceQPainter(QPainter& painter, double largeurTwips, double hauteurTwips)
    : painter_(&painter), largeur_(largeurTwips), hauteur_(hauteurTwips)
{
    prepare(*painter.device());
}

void SurfaceQPainter::prepare(QPaintDevice& device)
{
    kx_ = device.logicalDpiX() / twipsParPouce;
    ky_ = device.logicalDpiY() / twipsParPouce;
    const int genre = device.devType();
    matriciel_ = genre == QInternal::Image || genre == QInternal::Pixmap || genre == QInternal::Widget;
    painter_->setRenderHint(QPainter::Antialiasing, true);
    painter_->setRenderHint(QPainter::TextAntialiasing, true);
}

SurfaceQPainter::~SurfaceQPainter()
{
    Acheve();
}

bool SurfaceQPainter::atteint(double haut, double bas, double marge)
{
    if (atteintes_ && !atteintes_->atteinte.empty()) {
        const double n = double(atteintes_->atteinte.size());
        const double de = std::clamp(std::floor(haut - marge), 0.0, n), a = std::clamp(std::ceil(bas + marge) + 1, 0.0, n);
        std::fill(atteintes_->atteinte.begin() + std::ptrdiff_t(de), atteintes_->atteinte.begin() + std::ptrdiff_t(a), 1);
    }
    return bas + marge >= ligneDebut_ && haut - marge < ligneFin_;
}

double SurfaceQPainter::epaisseur(int largeur) const
{
    return std::max(1, largeur) * twipsParPixelEcran * kx_;
}

QPen SurfaceQPainter::stylo(Couleur couleur, int largeur, int style) const
{
    QPen pen(couleurQt(couleur));
    pen.setWidthF(epaisseur(largeur));
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (style == 1) {
        // In pen widths, as the vector surfaces write it.
        pen.setDashPattern({6, 4});
    } else if (style == 2) {
        // Dot, two blanks: in pen widths, so still visible at one pixel.
        pen.setDashPattern({1, 2});
    } else {
        pen.setCapStyle(Qt::RoundCap);
    }
    return pen;
}

QFont policeDe(const Surface& s)
{
    QFont f(QString::fromStdString(s.FontName));
    f.setPointSizeF(s.FontSize > 0 ? s.FontSize : 8);
    f.setBold(s.FontBold);
    f.setItalic(s.FontItalic);
    f.setUnderline(s.FontUnderline);
    return f;
}

void SurfaceQPainter::Acheve()
{
    if (trait_.size() < 2) {
        trait_.clear();
        return;
    }
    // Antialiasing reaches a pixel beyond half the pen's width.
    const QRectF boite = borne_ ? trait_.boundingRect() : QRectF();
    if (atteint(boite.top(), boite.bottom(), epaisseur(traitLargeur_) / 2 + 2)) {
        painter_->setPen(stylo(traitCouleur_, traitLargeur_, traitStyle_));
        painter_->setBrush(Qt::NoBrush);
        painter_->drawPolyline(trait_);
    }
    trait_.clear();
}

void SurfaceQPainter::Line(double x1, double y1, double x2, double y2, Couleur couleur)
{
    const QPointF a = point(x1, y1), b = point(x2, y2);
    if (a == b) {
        // A line of no length shows nothing: it leaves the line being
        // gathered as it is, so that the tangent a tracer without tangents
        // issues at the origin does not cut a curve's polyline in two.
        CurrentX = x2;
        CurrentY = y2;
        return;
    }
    const bool suite = !trait_.isEmpty() && trait_.last() == a && couleur == traitCouleur_ &&
                       DrawWidth == traitLargeur_ && DrawStyle == traitStyle_;
    const int max = DrawWidth > 1 ? piecesLargesMax : piecesFinesMax;
    if (!suite || trait_.size() >= max) {
        Acheve();
        trait_ << a;
        traitCouleur_ = couleur;
        traitLargeur_ = DrawWidth;
        traitStyle_ = DrawStyle;
    }
    trait_ << b;
    CurrentX = x2;
    CurrentY = y2;
}

void SurfaceQPainter::PSet(double x, double y, Couleur couleur)
{
    Acheve();
    // A square of the pen's width, aligned on the pixels so that it stays
    // one clear pixel wide.
    const double cote = epaisseur(DrawWidth);
    const QPointF c = point(x, y);
    const QRectF carre(std::floor(c.x() - cote / 2 + 0.5), std::floor(c.y() - cote / 2 + 0.5),
                       std::max(1.0, std::round(cote)), std::max(1.0, std::round(cote)));
    if (atteint(carre.top(), carre.bottom(), 1))
        painter_->fillRect(carre, couleurQt(couleur));
    CurrentX = x;
    CurrentY = y;
}

void SurfaceQPainter::Circle(double x, double y, double rayon, Couleur couleur)
{
    Acheve();
    const QPointF c = point(x, y);
    if (!atteint(c.y() - std::abs(rayon * ky_), c.y() + std::abs(rayon * ky_), epaisseur(DrawWidth) / 2 + 2))
        return;
    painter_->setPen(stylo(couleur, DrawWidth, DrawStyle));
    painter_->setBrush(Qt::NoBrush);
    painter_->drawEllipse(c, rayon * kx_, rayon * ky_);
}

void SurfaceQPainter::Print(const std::string& texte)
{
    Acheve();
    const QFont f = policeDe(*this);
    painter_->setFont(f);
    painter_->setPen(couleurQt(ForeColor));
    const QFontMetricsF m(f, painter_->device());
    const QPointF coin = point(CurrentX, CurrentY);
    // A line of text stays within its height; a whole height more is kept
    // for what a font draws beyond it.
    if (atteint(coin.y(), coin.y() + m.height(), m.height() + 2))
        painter_->drawText(coin + QPointF(0, m.ascent()), QString::fromStdString(texte));
    CurrentX = 0;
    CurrentY += TextHeight();
}

void SurfaceQPainter::Clear(Couleur fond)
{
    trait_.clear();
    painter_->fillRect(QRectF(0, 0, largeur_ * kx_, hauteur_ * ky_), couleurQt(fond));
    if (atteintes_)
        atteintes_->fond = fond;
    CurrentX = 0;
    CurrentY = 0;
}

void SurfaceQPainter::Face(const double* xs, const double* ys, int n, Couleur couleur)
{
    if (n < 3)
        return;
    Acheve();
    face_.resize(n);
    for (int i = 0; i < n; ++i)
        face_[i] = point(xs[i], ys[i]);
    const QRectF boite = borne_ ? face_.boundingRect() : QRectF();
    if (!atteint(boite.top(), boite.bottom(), 2))
        return;
    const QColor c = couleurQt(couleur);
    if (matriciel_) {
        painter_->setPen(Qt::NoPen);
    } else {
        QPen bord(c, 0.5 * twipsParPixelEcran * kx_);
        bord.setJoinStyle(Qt::RoundJoin);
        painter_->setPen(bord);
    }
    painter_->setBrush(c);
    painter_->setRenderHint(QPainter::Antialiasing, !matriciel_);
    painter_->drawPolygon(face_);
    painter_->setRenderHint(QPainter::Antialiasing, true);
}

double SurfaceQPainter::TextWidth(const std::string& texte) const
{
    const QFontMetricsF m(policeDe(*this), painter_->device());
    return m.horizontalAdvance(QString::fromStdString(texte)) / kx_;
}

double SurfaceQPainter::TextHeight() const
{
    const QFontMetricsF m(policeDe(*this), painter_->device());
    return m.height() / ky_;
}

}  // namespace velorin
