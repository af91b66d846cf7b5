#include "qt/surface_pdf.h"

#include <zlib.h>

#include <charconv>
#include <cstdio>

#include "catalogue/cp1252.h"

namespace velorin {

namespace {

// Objects: 1 catalogue, 2 pages, 3 the page, 4 its content, 5 the content's
// length, 6 to 9 the fonts (regular, bold, italic, bold italic).
constexpr int nbObjets = 9;
const char* const polices[4] = {"Helvetica", "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique"};

void nombre(std::string& s, double v)
{
    char tampon[32];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v, std::chars_format::general, 6).ptr;
    s.append(tampon, fin);
    s += ' ';
}

void couleur(std::string& s, Couleur c, const char* operateur)
{
    for (int decalage : {0, 8, 16}) {
        char tampon[16];
        const auto fin = std::to_chars(tampon, tampon + sizeof tampon, ((c >> decalage) & 0xFF) / 255.0,
                                       std::chars_format::general, 4)
                             .ptr;
        s.append(tampon, fin);
        s += ' ';
    }
    s += operateur;
    s += '\n';
}

}  // namespace

struct SurfacePdf::Compression {
    z_stream z{};
    unsigned char tampon[1 << 16];
};

SurfacePdf::SurfacePdf(std::ostream& sortie, int largeurPx, int hauteurPx)
    : SurfaceVectorielle(largeurPx, hauteurPx), sortie_(sortie), z_(std::make_unique<Compression>())
{
    echec_ = deflateInit(&z_->z, 6) != Z_OK;
    std::string l, h;
    nombre(l, largeurPx * 0.75);
    nombre(h, hauteurPx * 0.75);
    brut("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
    positions_[1] = ecrits_;
    brut("1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n");
    positions_[2] = ecrits_;
    brut("2 0 obj\n<< /Type /Pages /Kids [3 0 R] /Count 1 >>\nendobj\n");
    positions_[3] = ecrits_;
    brut("3 0 obj\n<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + l + h +
         "] /Resources << /Font << /F0 6 0 R /F1 7 0 R /F2 8 0 R /F3 9 0 R >> >> /Contents 4 0 R >>\nendobj\n");
    for (int i = 0; i < 4; ++i) {
        positions_[6 + i] = ecrits_;
        brut(std::to_string(6 + i) + " 0 obj\n<< /Type /Font /Subtype /Type1 /BaseFont /" + polices[i] +
             " /Encoding /WinAnsiEncoding >>\nendobj\n");
    }
    positions_[4] = ecrits_;
    brut("4 0 obj\n<< /Length 5 0 R /Filter /FlateDecode >>\nstream\n");
    debutFlux_ = ecrits_;
    // Pixels, origin top left, y down; round joins throughout.
    contenu("q 0.75 0 0 -0.75 0 " + h + "cm 1 j\n");
}

SurfacePdf::~SurfacePdf()
{
    termine();
    deflateEnd(&z_->z);
}

void SurfacePdf::brut(const std::string& octets)
{
    sortie_.write(octets.data(), std::streamsize(octets.size()));
    ecrits_ += octets.size();
}

void SurfacePdf::contenu(const std::string& octets)
{
    if (echec_ || fini_)
        return;
    z_stream& z = z_->z;
    z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(octets.data()));
    z.avail_in = static_cast<uInt>(octets.size());
    do {
        z.next_out = z_->tampon;
        z.avail_out = sizeof z_->tampon;
        if (deflate(&z, Z_NO_FLUSH) == Z_STREAM_ERROR)
            echec_ = true;
        brut(std::string(reinterpret_cast<char*>(z_->tampon), sizeof z_->tampon - z.avail_out));
    } while (!echec_ && z.avail_out == 0);
}

bool SurfacePdf::termine()
{
    if (fini_)
        return !echec_;
    Acheve();
    contenu("Q\n");
    fini_ = true;
    z_stream& z = z_->z;
    int etat = Z_OK;
    while (!echec_ && etat == Z_OK) {
        z.next_out = z_->tampon;
        z.avail_out = sizeof z_->tampon;
        etat = deflate(&z, Z_FINISH);
        echec_ = etat != Z_OK && etat != Z_STREAM_END;
        brut(std::string(reinterpret_cast<char*>(z_->tampon), sizeof z_->tampon - z.avail_out));
    }
    const std::uint64_t longueur = ecrits_ - debutFlux_;
    brut("\nendstream\nendobj\n");
    positions_[5] = ecrits_;
    brut("5 0 obj\n" + std::to_string(longueur) + "\nendobj\n");
    const std::uint64_t xref = ecrits_;
    std::string table = "xref\n0 " + std::to_string(nbObjets + 1) + "\n0000000000 65535 f \n";
    for (int i = 1; i <= nbObjets; ++i) {
        char ligne[24];
        std::snprintf(ligne, sizeof ligne, "%010llu 00000 n \n", static_cast<unsigned long long>(positions_[i]));
        table += ligne;
    }
    brut(table + "trailer\n<< /Size " + std::to_string(nbObjets + 1) + " /Root 1 0 R >>\nstartxref\n" +
         std::to_string(xref) + "\n%%EOF\n");
    sortie_.flush();
    return !echec_;
}

void SurfacePdf::rectangle(double x, double y, double l, double h, Couleur c)
{
    std::string& s = texte_;
    s.clear();
    couleur(s, c, "rg");
    nombre(s, x);
    nombre(s, y);
    nombre(s, l);
    nombre(s, h);
    s += "re f\n";
    contenu(s);
}

// The QPainter surface's pen: round caps, or flat caps and dashes six widths
// long, four apart, or dots one width long, two apart.
void SurfacePdf::trait(Couleur c, int l, int style)
{
    std::string& s = texte_;
    s.clear();
    couleur(s, c, "RG");
    s += std::to_string(l) + " w ";
    if (style == 1)
        s += "0 J [" + std::to_string(6 * l) + ' ' + std::to_string(4 * l) + "] 0 d\n";
    else if (style == 2)
        s += "0 J [" + std::to_string(l) + ' ' + std::to_string(2 * l) + "] 0 d\n";
    else
        s += "1 J [] 0 d\n";
}

void SurfacePdf::polyligne(const std::vector<PointPlan>& points, Couleur c, int largeur, int style)
{
    trait(c, largeur, style);
    std::string& s = texte_;
    for (std::size_t i = 0; i < points.size(); ++i) {
        nombre(s, points[i].x);
        nombre(s, points[i].y);
        s += i == 0 ? "m\n" : "l\n";
    }
    s += "S\n";
    contenu(s);
}

// Filled and stroked with a half-pixel hairline of its colour, solid.
void SurfacePdf::face(const std::vector<PointPlan>& coins, Couleur c)
{
    std::string& s = texte_;
    s.clear();
    couleur(s, c, "rg");
    couleur(s, c, "RG");
    s += "0.5 w [] 0 d\n";
    for (std::size_t i = 0; i < coins.size(); ++i) {
        nombre(s, coins[i].x);
        nombre(s, coins[i].y);
        s += i == 0 ? "m\n" : "l\n";
    }
    s += "h B\n";
    contenu(s);
}

void SurfacePdf::cercle(double x, double y, double r, Couleur c, int largeur, int style)
{
    trait(c, largeur, style);
    std::string& s = texte_;
    const double k = 0.5522847498 * r;
    nombre(s, x + r);
    nombre(s, y);
    s += "m\n";
    const double quarts[4][6] = {{x + r, y + k, x + k, y + r, x, y + r},
                                 {x - k, y + r, x - r, y + k, x - r, y},
                                 {x - r, y - k, x - k, y - r, x, y - r},
                                 {x + k, y - r, x + r, y - k, x + r, y}};
    for (const auto& q : quarts) {
        for (double v : q)
            nombre(s, v);
        s += "c\n";
    }
    s += "S\n";
    contenu(s);
}

void SurfacePdf::ecrit(double x, double y, const QFont& f, Couleur c, const std::string& texte)
{
    std::string& s = texte_;
    s = "BT /F" + std::to_string((f.bold() ? 1 : 0) + (f.italic() ? 2 : 0)) + ' ';
    nombre(s, f.pointSizeF() * 96 / 72);
    s += "Tf 1 0 0 -1 ";
    nombre(s, x);
    nombre(s, y);
    s += "Tm\n";
    couleur(s, c, "rg");
    s += '(';
    for (char o : versCp1252(texte)) {
        if (o == '(' || o == ')' || o == '\\')
            s += '\\';
        s += o;
    }
    s += ") Tj ET\n";
    contenu(s);
}

}  // namespace velorin
