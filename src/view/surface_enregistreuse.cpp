#include "view/surface_enregistreuse.h"

#include "settings/texte_nombre.h"

namespace velorin {

std::size_t nombreCaracteres(const std::string& texte)
{
    std::size_t n = 0;
    for (unsigned char c : texte)
        if ((c & 0xC0) != 0x80)  // not a continuation byte
            ++n;
    return n;
}

SurfaceEnregistreuse::SurfaceEnregistreuse(double largeur, double hauteur) : largeur_(largeur), hauteur_(hauteur) { }

OperationDessin SurfaceEnregistreuse::nouvelle(OperationDessin::Genre genre, Couleur couleur) const
{
    OperationDessin op;
    op.genre = genre;
    op.couleur = couleur;
    op.largeur = DrawWidth;
    op.style = DrawStyle;
    return op;
}

void SurfaceEnregistreuse::Line(double x1, double y1, double x2, double y2, Couleur couleur)
{
    OperationDessin op = nouvelle(OperationDessin::Genre::Ligne, couleur);
    op.x1 = x1;
    op.y1 = y1;
    op.x2 = x2;
    op.y2 = y2;
    garde(op);
    CurrentX = x2;
    CurrentY = y2;
}

void SurfaceEnregistreuse::PSet(double x, double y, Couleur couleur)
{
    OperationDessin op = nouvelle(OperationDessin::Genre::Point, couleur);
    op.x1 = x;
    op.y1 = y;
    garde(op);
    CurrentX = x;
    CurrentY = y;
}

void SurfaceEnregistreuse::Circle(double x, double y, double rayon, Couleur couleur)
{
    OperationDessin op = nouvelle(OperationDessin::Genre::Cercle, couleur);
    op.x1 = x;
    op.y1 = y;
    op.rayon = rayon;
    garde(op);
}

void SurfaceEnregistreuse::Print(const std::string& texte)
{
    OperationDessin op = nouvelle(OperationDessin::Genre::Texte, ForeColor);
    op.x1 = CurrentX;
    op.y1 = CurrentY;
    op.police = FontName;
    op.taille = FontSize;
    op.texte = texte;
    garde(op);
    CurrentX = 0;
    CurrentY += TextHeight();
}

void SurfaceEnregistreuse::Clear(Couleur fond)
{
    garde(nouvelle(OperationDessin::Genre::Effacement, fond));
    CurrentX = 0;
    CurrentY = 0;
}

void SurfaceEnregistreuse::Face(const double* xs, const double* ys, int n, Couleur couleur)
{
    if (n < 3)
        return;
    OperationDessin op = nouvelle(OperationDessin::Genre::Face, couleur);
    op.sommets.reserve(std::size_t(2 * n));
    for (int i = 0; i < n; ++i) {
        op.sommets.push_back(xs[i]);
        op.sommets.push_back(ys[i]);
    }
    garde(op);
}

double SurfaceEnregistreuse::TextWidth(const std::string& texte) const
{
    return 0.6 * FontSize * 20 * static_cast<double>(nombreCaracteres(texte));
}

double SurfaceEnregistreuse::TextHeight() const
{
    return 1.2 * FontSize * 20;
}

namespace {

std::string entreGuillemets(const std::string& texte)
{
    std::string s = "\"";
    for (char c : texte) {
        if (c == '"')
            s += "\"\"";
        else if (c == '\n' || c == '\r')
            s += ' ';
        else
            s += c;
    }
    return s + '"';
}

}  // namespace

void SurfaceEnregistreuse::ecrisDans(std::ostream* sortie)
{
    sortie_ = sortie;
}

void SurfaceEnregistreuse::garde(const OperationDessin& op)
{
    if (!sortie_) {
        operations_.push_back(op);
        return;
    }
    ligne_.clear();
    ajouteAuJournal(op, ligne_);
    sortie_->write(ligne_.data(), static_cast<std::streamsize>(ligne_.size()));
}

void SurfaceEnregistreuse::ecrisJournal(std::ostream& sortie) const
{
    std::string ligne;
    for (const OperationDessin& op : operations_) {
        ligne.clear();
        ajouteAuJournal(op, ligne);
        sortie.write(ligne.data(), static_cast<std::streamsize>(ligne.size()));
    }
}

std::string SurfaceEnregistreuse::journal() const
{
    std::string s;
    for (const OperationDessin& op : operations_)
        ajouteAuJournal(op, s);
    return s;
}

// Built with std::to_chars only, so that no locale of a stream can slip a
// decimal comma or a thousands separator into the journal.
void ajouteAuJournal(const OperationDessin& op, std::string& s)
{
    using G = OperationDessin::Genre;
    auto champ = [&s](const std::string& t) {
        s += ' ';
        s += t;
    };
    switch (op.genre) {
    case G::Ligne:
        s += "LINE";
        for (double v : {op.x1, op.y1, op.x2, op.y2})
            champ(texteCourt(v));
        champ(texteEntier(op.couleur));
        champ(texteEntier(op.largeur));
        champ(texteEntier(op.style));
        break;
    case G::Point:
        s += "PSET";
        champ(texteCourt(op.x1));
        champ(texteCourt(op.y1));
        champ(texteEntier(op.couleur));
        champ(texteEntier(op.largeur));
        break;
    case G::Cercle:
        s += "CIRCLE";
        for (double v : {op.x1, op.y1, op.rayon})
            champ(texteCourt(v));
        champ(texteEntier(op.couleur));
        champ(texteEntier(op.largeur));
        champ(texteEntier(op.style));
        break;
    case G::Texte:
        s += "PRINT";
        champ(texteCourt(op.x1));
        champ(texteCourt(op.y1));
        champ(texteEntier(op.couleur));
        champ(entreGuillemets(op.police));
        champ(texteCourt(op.taille));
        champ(entreGuillemets(op.texte));
        break;
    case G::Effacement:
        s += "CLEAR";
        champ(texteEntier(op.couleur));
        break;
    case G::Face:
        s += "FACE";
        champ(texteEntier(static_cast<long long>(op.sommets.size() / 2)));
        for (double v : op.sommets)
            champ(texteCourt(v));
        champ(texteEntier(op.couleur));
        break;
    }
    s += '\n';
}

}  // namespace velorin
