#include "plot/figure.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "catalogue/cp1252.h"
#include "engine/nombres.h"
#include "plot/ecran.h"
#include "settings/texte_nombre.h"

namespace velorin {

namespace {

constexpr int chiffresDouble = 15, chiffresSimple = 7;

// The longest line of numbers the reader takes (eight numbers of a line 4
// take about 200 characters), and the longest catalogue name (a path).
constexpr std::size_t longueurLigneMax = 4096;

// One line of the file being built. A number gets a blank in front unless
// it is negative and one blank after; a boolean shares a line followed by
// one blank.
class LigneEcrite {
public:
    LigneEcrite& nombre(double v, int chiffres, const char* nom)
    {
        if (!std::isfinite(v) && nonFini_.empty())
            nonFini_ = nom;
        if (!(v < 0))
            texte_ += ' ';
        texte_ += texteNombre(v, chiffres);
        texte_ += ' ';
        return *this;
    }
    LigneEcrite& entier(long long v)
    {
        if (v >= 0)
            texte_ += ' ';
        texte_ += texteEntier(v);
        texte_ += ' ';
        return *this;
    }
    LigneEcrite& booleen(bool b)
    {
        texte_ += b ? "True " : "False ";
        return *this;
    }
    const std::string& texte() const { return texte_; }
    const std::string& nonFini() const { return nonFini_; }

private:
    std::string texte_;
    std::string nonFini_;
};

// The whole figure, with the name of the first value that is not finite.
class Redaction {
public:
    void ligne(const LigneEcrite& l)
    {
        if (nonFini_.empty())
            nonFini_ = l.nonFini();
        texte_ += l.texte();
        texte_ += "\r\n";
    }
    // A text stands alone on its line: a line break inside it would shift
    // every line after, so it is written as a blank.
    void texte(const std::string& t)
    {
        for (char c : t)
            texte_ += (c == '\r' || c == '\n') ? ' ' : c;
        texte_ += "\r\n";
    }
    void booleen(bool b) { texte_ += b ? "True\r\n" : "False\r\n"; }
    void nombre(double v, int chiffres, const char* nom) { ligne(LigneEcrite().nombre(v, chiffres, nom)); }
    std::string texte_;
    std::string nonFini_;
};

// The window's own background after a reading: black, white under video
// inversion.
Couleur fondFenetre(const Etat& etat)
{
    return etat.fenetre.inversionVideo ? 0xFFFFFF : 0;
}

Redaction redige(const Etat& etat, const GeometrieFenetre& g)
{
    const Parametres& p = etat.param;
    Redaction r;
    r.booleen(etat.fenetre.modePlan);
    r.texte(etat.fenetre.fichierCatalogue);
    r.ligne(LigneEcrite()
                .nombre(p.xmin, chiffresDouble, "xmin")
                .nombre(p.xmax, chiffresDouble, "xmax")
                .nombre(p.ymin, chiffresDouble, "ymin")
                .nombre(p.ymax, chiffresDouble, "ymax")
                .nombre(p.zmin, chiffresSimple, "zmin")
                .nombre(p.zmax, chiffresDouble, "zmax"));
    r.ligne(LigneEcrite()
                .nombre(p.Xviseur, chiffresDouble, "Xviseur")
                .nombre(p.Yviseur, chiffresDouble, "Yviseur")
                .nombre(p.Zviseur, chiffresSimple, "Zviseur")
                .nombre(p.pasRota, chiffresSimple, "pasRota")
                .nombre(p.Xdirection, chiffresDouble, "Xdirection")
                .nombre(p.Ydirection, chiffresDouble, "Ydirection")
                .nombre(p.Zdirection, chiffresDouble, "Zdirection")
                .nombre(p.Rotadir, chiffresDouble, "Rotadir"));
    // The flag says whether the reference colour for erasing is the window's
    // background itself (rather than that background through the scheme).
    const bool reference = etat.couleurs.couleurFond == fondFenetre(etat);
    r.ligne(LigneEcrite()
                .entier(static_cast<long long>(etat.courbes.lignes.size()))
                .entier(etat.etiquettes.nombre())
                .booleen(etat.fenetre.inversionVideo)
                .booleen(reference));
    r.ligne(LigneEcrite()
                .nombre(g.gauche, chiffresSimple, "Left")
                .nombre(g.haut, chiffresSimple, "Top")
                .nombre(g.largeur, chiffresSimple, "Width")
                .nombre(g.hauteur, chiffresSimple, "Height"));
    for (const LigneCourbe& ligne : etat.courbes.lignes)
        for (double v : ligne)
            r.nombre(v, chiffresDouble, "une courbe tracée");
    for (std::size_t k = 1; k < etat.etiquettes.lb.size(); ++k) {
        const Etiquette& e = etat.etiquettes.lb[k];
        r.texte(e.police);
        r.nombre(e.taille, chiffresSimple, "la taille d'un label");
        r.booleen(e.gras);
        r.booleen(e.italique);
        r.booleen(e.souligne);
        r.ligne(LigneEcrite().entier(e.couleur));
        r.texte(e.texte);
        r.nombre(e.gauche, chiffresSimple, "la position d'un label");
        r.nombre(e.haut, chiffresSimple, "la position d'un label");
    }
    return r;
}

// ---- Reading

std::vector<std::string_view> champs(std::string_view ligne)
{
    std::vector<std::string_view> v;
    std::size_t i = 0;
    while (i < ligne.size()) {
        while (i < ligne.size() && (ligne[i] == ' ' || ligne[i] == '\t'))
            ++i;
        const std::size_t debut = i;
        while (i < ligne.size() && ligne[i] != ' ' && ligne[i] != '\t')
            ++i;
        if (i > debut)
            v.push_back(ligne.substr(debut, i - debut));
    }
    return v;
}

std::string minuscules(std::string_view s)
{
    std::string m(s);
    for (char& c : m)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return m;
}

// The file's lines with a cursor; every failure names the file and the line.
class Lecture {
public:
    Lecture(const std::string& contenu, const std::string& chemin)
        : lignes_(lignesDuTexte(contenu)), chemin_(chemin) { }

    int numero() const { return numero_; }

    // A reason that is a sentence of its own (a message of the catalogue or
    // of the file layer) keeps its own full stop.
    Erreur echec(const std::string& raison) const
    {
        const bool point = !raison.empty() && raison.back() == '.';
        return "Figure " + texteCite(chemin_) + ", ligne " + std::to_string(numero_) + " : " + raison +
               (point ? "" : ".");
    }

    // Moves to the next line; false (and the message) at the end of the
    // file. A line longer than `longueurMax` is refused before anything
    // reads it.
    Erreur suivante(const char* attendu, std::size_t longueurMax = longueurLigneMax)
    {
        ++numero_;
        const bool pluriel = std::string_view(attendu).substr(0, 4) == "les ";
        if (numero_ > static_cast<int>(lignes_.size()))
            return echec(std::string("la figure s'arrête là, ") + attendu + (pluriel ? " manquent" : " manque"));
        if (ligne().size() > longueurMax)
            return echec("la ligne a " + std::to_string(ligne().size()) + " octets ; " + attendu +
                         (pluriel ? " en ont" : " en a") + " au plus " + std::to_string(longueurMax));
        return {};
    }

    const std::string& ligne() const { return lignes_[numero_ - 1]; }

    // A text alone on its line: UTF-8, or Windows-1252 as older figures hold it.
    std::string texte() const
    {
        const std::string& l = ligne();
        return estUtf8(l) ? l : depuisCp1252(l);
    }

    Erreur booleen(std::string_view champ, const char* nom, bool& b) const
    {
        const std::string m = minuscules(champ);
        if (m == "true" || m == "vrai" || m == "#true#")
            b = true;
        else if (m == "false" || m == "faux" || m == "#false#")
            b = false;
        else
            return echec(texteCite(champ) + " pour " + nom + " : True ou False attendu");
        return {};
    }

    Erreur nombre(std::string_view champ, const char* nom, double& v) const
    {
        std::string t(champ);
        for (char& c : t)
            if (c == ',')
                c = '.';  // a comma decimal, as some figures hold it
        const char* debut = t.data();
        const char* fin = debut + t.size();
        if (debut != fin && *debut == '+')
            ++debut;
        const bool signeDouble = debut != fin && (*debut == '+' || (*debut == '-' && debut != t.data()));
        const auto r = std::from_chars(debut, fin, v);
        if (debut == fin || signeDouble || r.ptr != fin || r.ec == std::errc::invalid_argument)
            return echec(texteCite(champ) + " n'est pas un nombre (" + nom + ")");
        if (r.ec != std::errc())
            return echec(texteCite(champ) + " est hors des nombres représentables (" + nom + ")");
        if (!std::isfinite(v))  // "inf", "nan"
            return echec(texteCite(champ) + " n'est pas un nombre (" + nom + ")");
        return {};
    }

    Erreur simple(std::string_view champ, const char* nom, float& f) const
    {
        double v;
        if (auto e = nombre(champ, nom, v))
            return e;
        if (std::fabs(v) > FLT_MAX)
            return echec(texteCite(champ) + " est hors des limites de " + nom + " (simple précision)");
        f = static_cast<float>(v);
        return {};
    }

    Erreur entier(std::string_view champ, const char* nom, double min, double max, long long& n) const
    {
        double v;
        if (auto e = nombre(champ, nom, v))
            return e;
        const double arrondi = std::nearbyint(v);
        if (arrondi < min || arrondi > max)
            return echec(texteCite(champ) + " pour " + nom + " : " + texteEntier(static_cast<long long>(min)) + " à " +
                         texteEntier(static_cast<long long>(max)) + " attendu");
        n = static_cast<long long>(arrondi);
        return {};
    }

    // The next line split in exactly `n` fields.
    Erreur champsLigne(std::size_t n, const char* attendu, std::vector<std::string_view>& v)
    {
        if (auto e = suivante(attendu))
            return e;
        v = champs(ligne());
        if (v.size() != n)
            return echec(
                (n == 1 ? std::string("une seule valeur attendue") : std::to_string(n) + " valeurs attendues") + " (" +
                attendu + "), " + std::to_string(v.size()) + " trouvée" + (v.size() > 1 ? "s" : ""));
        return {};
    }

    // The next line holding one value.
    Erreur seul(const char* attendu, std::string_view& champ)
    {
        std::vector<std::string_view> v;
        if (auto e = champsLigne(1, attendu, v))
            return e;
        champ = v[0];
        return {};
    }

private:
    std::vector<std::string> lignes_;
    const std::string& chemin_;
    int numero_ = 0;
};

// The file name alone: a figure names its catalogue in the curves folder,
// whatever folder the name was written with.
std::string nomSeul(const std::string& t)
{
    const std::size_t barre = t.find_last_of("/\\");
    return barre == std::string::npos ? t : t.substr(barre + 1);
}

Erreur lisEntete(Lecture& l, Etat& etat, const OptionsFigure& options, ResultatFigure& r)
{
    std::string_view champ;
    bool plan = false;
    if (auto e = l.seul("le mode", champ))
        return e;
    if (auto e = l.booleen(champ, "le mode plan", plan))
        return e;
    etat.fenetre.choisisMode(!plan);

    if (auto e = l.suivante("le nom du catalogue"))
        return e;
    const std::string dossier =
        options.dossierCatalogue.empty() ? etat.fenetre.dossierCourbes : options.dossierCatalogue;
    // A name that is not UTF-8 is the bytes of a file name as this system
    // wrote it when that file is there, else Windows-1252 of an older figure.
    std::string nom = nomSeul(std::string(sansBlancsAuxBouts(l.texte(), " \t")));
    if (const std::string brut = nomSeul(std::string(sansBlancsAuxBouts(l.ligne(), " \t")));
        brut != nom && !verifieFichierLisible(dossier + brut, "Le catalogue"))
        nom = brut;
    if (nom.empty() || nom == "." || nom == "..")
        return l.echec("le nom du catalogue est vide");
    etat.fenetre.fichierCatalogue = nom;
    const std::string chemin = dossier + nom;
    if (options.catalogueExistant)
        if (auto e = verifieFichierLisible(chemin, "Le catalogue de la figure"))
            return l.echec(e.message());
    if (auto e = ouvrirCatalogue(etat.catalogue, chemin))
        return l.echec(e.message());

    std::vector<std::string_view> v;
    Parametres& p = etat.param;
    if (auto e = l.champsLigne(6, "le cadre", v))
        return e;
    double cadre[6];
    float zmin;
    for (int i : {0, 1, 2, 3, 5})
        if (auto e = l.nombre(v[i], "le cadre", cadre[i]))
            return e;
    if (auto e = l.simple(v[4], "zmin", zmin))
        return e;
    p.xmin = cadre[0], p.xmax = cadre[1], p.ymin = cadre[2], p.ymax = cadre[3], p.zmin = zmin, p.zmax = cadre[5];

    if (auto e = l.champsLigne(8, "le viseur", v))
        return e;
    double vue[8];
    float Zviseur, pasRota;
    for (int i : {0, 1, 4, 5, 6, 7})
        if (auto e = l.nombre(v[i], "le viseur", vue[i]))
            return e;
    if (auto e = l.simple(v[2], "Zviseur", Zviseur))
        return e;
    if (auto e = l.simple(v[3], "pasRota", pasRota))
        return e;
    p.Xviseur = vue[0], p.Yviseur = vue[1], p.Zviseur = Zviseur, p.pasRota = pasRota;
    p.Xdirection = vue[4], p.Ydirection = vue[5], p.Zdirection = vue[6], p.Rotadir = vue[7];

    if (auto e = l.champsLigne(4, "les nombres de courbes et de labels, les deux couleurs", v))
        return e;
    long long nbCourbes, nbEtiquettes;
    bool inversion, reference;
    if (auto e = l.entier(v[0], "le nombre de courbes", 0, maxCourbes, nbCourbes))
        return e;
    if (auto e = l.entier(v[1], "le nombre de labels", 0, maxEtiquettes, nbEtiquettes))
        return e;
    if (auto e = l.booleen(v[2], "l'inversion vidéo", inversion))
        return e;
    if (auto e = l.booleen(v[3], "la couleur de référence", reference))
        return e;
    r.nbCourbes = static_cast<int>(nbCourbes);
    r.nbEtiquettes = static_cast<int>(nbEtiquettes);
    r.referenceFond = reference;
    etat.fenetre.inversionVideo = inversion;
    // The reference colour for erasing: with the flag, the window's
    // background itself; without it, that background as the frame drawing
    // converts it (the scheme's background, inverted under video inversion).
    // The next clearing records the background in force again.
    etat.couleurs.couleurFond = reference ? fondFenetre(etat) : couleursRepere(etat).fond;

    if (auto e = l.champsLigne(4, "la place de la fenêtre", v))
        return e;
    GeometrieFenetre g;
    float* membres[] = {&g.gauche, &g.haut, &g.largeur, &g.hauteur};
    for (int i = 0; i < 4; ++i)
        if (auto e = l.simple(v[i], "la place de la fenêtre", *membres[i]))
            return e;
    r.geometrie = g;
    r.geometrieLue = true;
    return {};
}

Erreur lisCourbes(Lecture& l, Etat& etat, int nbCourbes)
{
    TableCourbes& table = etat.courbes;
    videCourbes(table);
    for (int i = 0; i < nbCourbes; ++i) {
        LigneCourbe ligne{};
        for (std::size_t j = 0; j < ligne.size(); ++j) {
            std::string_view champ;
            if (auto e = l.seul("une valeur de courbe tracée", champ))
                return e;
            if (auto e = l.nombre(champ, "une valeur de courbe tracée", ligne[j]))
                return e;
            // The entry number becomes an integer when the curve is drawn:
            // checked here, while the text written can still be shown.
            if (j == colNumero && !(ligne[j] > -2147483649.0 && ligne[j] < 2147483648.0))
                return l.echec(texteCite(champ) +
                               " pour le numéro d'entrée d'une courbe tracée : -2147483648 à 2147483647 attendu");
        }
        static_cast<void>(ajouteCourbe(table, ligne));
    }
    return {};
}

Erreur lisEtiquettes(Lecture& l, Etat& etat, int nombre)
{
    Etiquettes& et = etat.etiquettes;
    for (int k = 1; k <= nombre; ++k) {
        Etiquette e;
        std::string_view champ;
        if (auto err = l.suivante("le nom de police d'un label"))
            return err;
        e.police = std::string(sansBlancsAuxBouts(l.texte(), " \t"));
        if (e.police.empty())
            return l.echec("le nom de police du label " + std::to_string(k) + " est vide");
        if (auto err = l.seul("la taille d'un label", champ))
            return err;
        if (auto err = l.simple(champ, "la taille d'un label", e.taille))
            return err;
        if (!(e.taille > 0 && e.taille <= 2048))
            return l.echec(texteCite(champ) + " pour la taille du label " + std::to_string(k) +
                           " : plus de 0 et au plus 2048 points attendus");
        for (bool* b : {&e.gras, &e.italique, &e.souligne}) {
            if (auto err = l.seul("le style d'un label", champ))
                return err;
            if (auto err = l.booleen(champ, "le style d'un label", *b))
                return err;
        }
        long long couleur;
        if (auto err = l.seul("la couleur d'un label", champ))
            return err;
        if (auto err = l.entier(champ, "la couleur d'un label", INT32_MIN, INT32_MAX, couleur))
            return err;
        e.couleur = static_cast<std::int32_t>(couleur);
        if (auto err = l.suivante("le texte d'un label", std::string::npos))
            return err;
        e.texte = l.texte();
        for (float* position : {&e.gauche, &e.haut}) {
            if (auto err = l.seul("la position d'un label", champ))
                return err;
            if (auto err = l.simple(champ, "la position d'un label", *position))
                return err;
        }
        e.visible = true;
        et.lb.push_back(e);
        et.general1.resize(et.lb.size());
        et.general2.resize(et.lb.size());
        et.general3.resize(et.lb.size());
        et.general4.resize(et.lb.size());
        et.general5.resize(et.lb.size());
        et.drapeaux.resize(et.lb.size());
        et.simples.resize(et.lb.size());
        et.doubles.resize(et.lb.size());
    }
    return {};
}

}  // namespace

std::string texteFigure(const Etat& etat, const GeometrieFenetre& geometrie)
{
    return redige(etat, geometrie).texte_;
}

Erreur ecrisFigure(const std::string& chemin, const Etat& etat, const GeometrieFenetre& geometrie)
{
    const Redaction r = redige(etat, geometrie);
    if (!r.nonFini_.empty())
        return "Figure " + texteCite(chemin) + " non écrite : la valeur de " + r.nonFini_ + " n'est pas un nombre fini";
    return ecrisFichierEntier(chemin, r.texte_);
}

std::string sauveSecours(const Etat& etat, int sansLigne, const GeometrieFenetre& geometrie)
{
    Etat sauve = etat;
    std::vector<LigneCourbe>& lignes = sauve.courbes.lignes;
    if (sansLigne >= 1 && sansLigne <= static_cast<int>(lignes.size())) {
        lignes.erase(lignes.begin() + (sansLigne - 1));
        sauve.courbes.nbCourbes = static_cast<std::int16_t>(lignes.size());
    }
    const std::string chemin = etat.fenetre.dossierFig + nomFigureSecours;
    if (auto erreur = ecrisFigure(chemin, sauve, geometrie))
        return "L'écran n'a pas pu être sauvé : " + erreur.message();
    return "L'écran est sauvé dans " + texteCite(chemin) +
           " : « Lire un écran mémorisé » (menu Mémorisation) le redonne.";
}

ResultatFigure analyseFigure(const std::string& contenu, const std::string& chemin, Etat& etat,
                             const OptionsFigure& options)
{
    ResultatFigure r;
    // The labels of the drawing go first, whatever the figure holds.
    Etiquettes& et = etat.etiquettes;
    const Etiquette modele = et.lb[0];
    et = Etiquettes{};
    et.lb[0] = modele;
    Lecture l(contenu, chemin);
    r.erreur = lisEntete(l, etat, options, r);
    if (!r.erreur)
        r.erreur = lisCourbes(l, etat, r.nbCourbes);
    if (!r.erreur)
        r.erreur = lisEtiquettes(l, etat, r.nbEtiquettes);
    if (!r.erreur)
        et.lb[0] = Etiquette{};  // the template back to its defaults
    r.lignesLues = r.erreur ? l.numero() - 1 : l.numero();
    return r;
}

ResultatFigure lisFigure(const std::string& chemin, Etat& etat, const OptionsFigure& options)
{
    ResultatFigure r;
    // Six lines, 32 per curve and nine per label, at their most: anything
    // far larger is not a figure.
    std::string contenu;
    if (auto e = lisFichierTexte(chemin, "La figure", "une figure", std::size_t{96} << 20, contenu)) {
        r.erreur = e;
        return r;
    }
    return analyseFigure(contenu, chemin, etat, options);
}

std::string messageFigure(const ResultatFigure& r)
{
    return "Nre de fonctions " + std::to_string(r.nbCourbes) + "\nNbre de labels " + std::to_string(r.nbEtiquettes);
}

}  // namespace velorin
