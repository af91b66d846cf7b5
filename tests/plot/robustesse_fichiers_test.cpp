// Mutated catalogues and parameter files through the real read paths (files
// in a temporary folder): nothing may crash or hang, no value that is not
// finite may enter the parameters, and every refusal is a French message
// with no raw control byte and no "inf" or "nan".
#include <gtest/gtest.h>

#include <random>

#include "catalogue/catalogue.h"
#include "commun/commun.h"
#include "plot/demande.h"
#include "settings/memoire.h"

namespace velorin {
namespace {

using namespace essai;

std::mt19937 alea(20261124);
int entier(int n)
{
    return std::uniform_int_distribution<int>(0, n - 1)(alea);
}
template <class T, std::size_t n> const T& unDe(const T (&t)[n])
{
    return t[entier(int(n))];
}

// A message fit to show: not empty, no control byte (C0, DEL or the UTF-8
// C1 range), no number that is not finite.
void verifieMessage(const std::string& message, const std::string& quoi)
{
    ASSERT_FALSE(message.empty()) << quoi;
    for (std::size_t i = 0; i < message.size(); ++i) {
        const auto c = static_cast<unsigned char>(message[i]);
        const bool c1 = c == 0xC2 && i + 1 < message.size() && static_cast<unsigned char>(message[i + 1]) >= 0x80 &&
                        static_cast<unsigned char>(message[i + 1]) <= 0x9F;
        ASSERT_FALSE(c < 32 || c == 127 || c1) << quoi << ": byte " << int(c) << " in " << message;
    }
    // The file's own text between « » may say anything; the rest may not.
    std::string hors = message;
    for (std::size_t a; (a = hors.find("« ")) != std::string::npos;) {
        const std::size_t b = hors.find(" »", a);
        hors.erase(a, b == std::string::npos ? std::string::npos : b + 3 - a);
    }
    for (const char* jamais : {" inf ", "(inf", "inf)", " nan", "(nan", "nan)"})
        ASSERT_EQ(hors.find(jamais), std::string::npos) << quoi << ": " << message;
}

// A new file each time: replacing one by truncation makes some file systems
// flush it to the disk, which only slows the test down.
void remplace(const std::string& chemin, const std::string& octets)
{
    fs::remove(chemin);
    ecrisFichier(chemin, octets);
}

std::string mutationCatalogue(std::string octets)
{
    static const char* textes[] = {"\0", "\x1B[2J", "\r",   "\x07",   "\x9B",  "\xFF\xFE", "][",
                                   ":[", "<",       "(1,2", "X^1000", "1E999", "\n"};
    static const std::int16_t genres[] = {-32768, -1, 0, 1, 4, 9, 10, 13, 14, 15, 16, 300, 32767};
    for (int i = 1 + entier(4); i > 0; --i) {
        const std::size_t p = octets.empty() ? 0 : std::size_t(entier(int(octets.size())));
        switch (entier(6)) {
        case 0:  // random bytes
            for (int k = entier(20); k >= 0 && p + k < octets.size(); --k)
                octets[p + k] = char(entier(256));
            break;
        case 1:  // cut, often inside a record
            octets.resize(p);
            break;
        case 2: {  // a strange kind at the head of a record
            const std::size_t debut = p / tailleEnregistrement * tailleEnregistrement;
            const std::int16_t g = unDe(genres);
            if (debut + 1 < octets.size()) {
                octets[debut] = char(g & 0xFF);
                octets[debut + 1] = char((g >> 8) & 0xFF);
            }
            break;
        }
        case 3: {  // control bytes or syntax inside a text, in place
            const char* choisi = unDe(textes);
            const std::string t = choisi[0] ? std::string(choisi) : std::string(1, '\0');
            for (std::size_t k = 0; k < t.size() && p + k < octets.size(); ++k)
                octets[p + k] = t[k];
            break;
        }
        case 4:  // a few extra bytes: a partial record
            octets.append(std::size_t(1 + entier(301)), char(entier(256)));
            break;
        default:  // a record repeated
            if (octets.size() >= std::size_t(tailleEnregistrement))
                octets += octets.substr(0, tailleEnregistrement);
        }
    }
    return octets;
}

TEST(RobustesseFichiers, CataloguesMutesLusEtTracesOuRefusesEnFrancais)
{
    const LigneCatalogue entrees[] = {
        {0, "y = f(x)=sin(x)"},
        {1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"},
        {2, "x=f1(a,t)=a*cos(t)][y=f2(a,t)=a*sin(t)][z=f3(a,t)=a"},
        {3, "R=f1(t)=2][Agh=f2(t)=t][Agv=f3(t)=0"},
        {4, "R=f1(a,t)=1][Agh=f2(a,t)=a][Agv=f3(a,t)=t"},
        {5, "D(M,u):[(1,2,3)][(0,1,0)]"},
        {6, "P(M,u,v):[(0,0,0)][(1,0,0)][(0,1,0)]"},
        {7, "Plan:[x+y+z=1]"},
        {8, "Segment:[(0,0,0)][(1,1,1)]"},
        {9, "Point:[(1,-2P,3)]"},
        {14, "x^2+y^2<z<1"},
        {-1, "effacée"},
    };
    std::string valide;
    for (const LigneCatalogue& e : entrees)
        valide += octetsEnregistrement(e);
    DossierTemporaire dossier;
    const std::string chemin = dossier / "essai.lsu";
    int traces = 0;
    for (int essai = 0; essai < 80; ++essai) {
        remplace(chemin, mutationCatalogue(valide));
        Etat etat = essai::etatCalibre(essai % 2 == 0);
        etat.param.pasT = 0.5, etat.param.pasA = 0.5;
        etat.param.nbrCalX = 10, etat.param.nbrCalY = 6, etat.param.nbrCalZ = 4;
        if (auto erreur = ouvrirCatalogue(etat.catalogue, chemin)) {
            verifieMessage(erreur.message(), "ouverture");
            continue;
        }
        Erreur erreurListe;
        const auto liste = listerCatalogue(etat.catalogue, &erreurListe);
        ASSERT_FALSE(erreurListe) << erreurListe.message();
        ASSERT_EQ(liste.size(), std::size_t(etat.catalogue.nbLignesCatalogue) + 1);
        for (NumeroLigne n = 1; n <= etat.catalogue.nbLignesCatalogue; ++n) {
            SurfaceEnregistreuse surface;
            const ResultatTrace r = demandeTrace(etat, surface, int(n), {}, {});
            traces += r.trace;
            if (r.erreur)
                verifieMessage(r.erreur.message(), liste[std::size_t(n)]);
            etat.courbes = {};  // never the cap on drawn curves
        }
    }
    EXPECT_GT(traces, 100);  // the mutations leave most entries traceable
    Catalogue cat;
    const auto erreur = ouvrirCatalogue(cat, dossier / "absent/x.lsu\x1B[2J");
    ASSERT_TRUE(erreur);
    verifieMessage(erreur.message(), "absent");
}

std::string mutationMemoire(std::string texte)
{
    static const char* valeurs[] = {"1e999", "-1e999", "nan",    "-nan", "inf", "1e-400", "4e38",
                                    "1e308", "32768",  "-32769", "0x10", "1,5", "",       "#TRUE#",
                                    "2",     "1e38",   " ",      "\x1B", "+-1", "."};
    static const char octets[] = ",.\r\n e9-+\t\x1B\x07#";
    for (int i = 1 + entier(3); i > 0; --i) {
        const std::size_t p = texte.empty() ? 0 : std::size_t(entier(int(texte.size())));
        switch (entier(8)) {
        case 0: texte.erase(p, 1); break;
        case 1:
            if (p < texte.size())
                texte.insert(p, 1, texte[p]);
            break;
        case 2: texte.insert(p, 1, octets[entier(sizeof octets - 1)]); break;
        case 3: texte.insert(0, "\xEF\xBB\xBF"); break;
        case 4:  // another line end everywhere
        {
            const std::string fin(1, entier(2) ? '\r' : '\n');
            for (std::size_t k = 0; (k = texte.find("\r\n", k)) != std::string::npos;)
                texte.replace(k, 2, fin);
            break;
        }
        case 5:  // decimal commas
            for (char& c : texte)
                if (c == '.')
                    c = ',';
            break;
        case 6: {  // one value replaced
            const std::size_t a = texte.find_last_of(",\n", p);
            const std::size_t debut = a == std::string::npos ? 0 : a + 1;
            const std::size_t fin = texte.find_first_of(",\r\n", debut);
            texte.replace(debut, (fin == std::string::npos ? texte.size() : fin) - debut, unDe(valeurs));
            break;
        }
        default: texte.insert(p, 1, '\0');
        }
    }
    return texte;
}

TEST(RobustesseFichiers, FichiersDeParametresMutesLusFinisOuRefuses)
{
    Parametres exemple;
    exemple.pasT = 0.05, exemple.zmin = -2.5f, exemple.Xviseur = 1234.5678;
    const std::string valide = texteMemoire(exemple);
    DossierTemporaire dossier;
    const std::string chemin = dossier / "mem.log";
    int lus = 0;
    for (int essai = 0; essai < 2000; ++essai) {
        remplace(chemin, mutationMemoire(valide));
        Parametres p;
        const std::string avant = texteMemoire(p);
        if (auto erreur = lisMemoire(chemin, p)) {
            verifieMessage(erreur.message(), "lecture");
            ASSERT_EQ(texteMemoire(p), avant);  // a refused file changes nothing
            continue;
        }
        ++lus;
        // What was read is finite (written again, it reads back to the same text), its boxes 0 or 1.
        for (int c : {p.repereOrthonorme, p.traceContinu, p.projXOy, p.projXOz, p.projYOz, p.projOx, p.projOy, p.projOz,
                      p.axesVisibles, p.avecRayon, p.fondBlanc, p.avecSegmentTangent})
            ASSERT_TRUE(c == 0 || c == 1);
        Parametres relu;
        const std::string texte = texteMemoire(p);
        ASSERT_EQ(texte.find_first_of("iInN"), std::string::npos) << texte;  // no inf, no nan
        ASSERT_FALSE(analyseMemoire(texte, "relu", relu)) << texte;
        ASSERT_EQ(texteMemoire(relu), texte);
    }
    EXPECT_GT(lus, 200);   // BOM, line ends and harmless changes are read
    EXPECT_LT(lus, 1900);  // and the damaging ones refused
}

}  // namespace
}  // namespace velorin
