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
int entier(int n) { return std::uniform_int_distribution<int>(0, n - 1)(alea); }
template <class T, std::size_t n> const T& unDe(const T (&t)[n]) { return t[entier(int(n))]; }

// A message fit to show: not empty, no control byte (C0, DEL or the UTF-8
// C1 range), no number that is not finite outside the file's own « » text.
void verifieMessage(const std::string& message, const std::string& quoi)
{
    ASSERT_FALSE(message.empty()) << quoi;
    for (std::size_t i = 0; i < message.size(); ++i) {
        const auto c = static_cast<unsigned char>(message[i]);
        const auto d = i + 1 < message.size() ? static_cast<unsigned char>(message[i + 1]) : 0;
        ASSERT_FALSE(c < 32 || c == 127 || (c == 0xC2 && d >= 0x80 && d <= 0x9F)) << quoi << ": " << message;
    }
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
    static const char* textes[] = {"\x1B[2J", "\r", "\x07", "\x9B", "\xFF\xFE", "][", ":[", "<", "(1,2", "X^1000",
                                   "1E999",   "\n"};
    static const std::int16_t genres[] = {-32768, -1, 0, 1, 4, 9, 10, 13, 14, 15, 16, 300, 32767};
    for (int i = 1 + entier(4); i > 0; --i) {
        const std::size_t p = octets.empty() ? 0 : std::size_t(entier(int(octets.size())));
        const std::size_t debut = p / tailleEnregistrement * tailleEnregistrement;
        const std::int16_t g = unDe(genres);
        const std::string t = entier(13) ? unDe(textes) : std::string(1, '\0');
        switch (entier(6)) {
        case 0:  // random bytes
            for (int k = entier(20); k >= 0 && p + k < octets.size(); --k)
                octets[p + k] = char(entier(256));
            break;
        case 1: octets.resize(p); break;  // cut, often inside a record
        case 2:                           // a strange kind at the head of a record
            if (debut + 1 < octets.size())
                octets[debut] = char(g & 0xFF), octets[debut + 1] = char((g >> 8) & 0xFF);
            break;
        case 3:  // control bytes or syntax inside a text, in place
            for (std::size_t k = 0; k < t.size() && p + k < octets.size(); ++k)
                octets[p + k] = t[k];
            break;
        case 4: octets.append(std::size_t(1 + entier(301)), char(entier(256))); break;  // a partial record
        default:                                                                           // a record repeated
            if (octets.size() >= std::size_t(tailleEnregistrement))
                octets += octets.substr(0, tailleEnregistrement);
        }
    }
    return octets;
}

TEST(RobustesseFichiers, CataloguesMutesLusEtTracesOuRefusesEnFrancais)
{
    const LigneCatalogue entrees[] = {
        {0, "y = f(x)=sin(x)"}, {1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"},
        {2, "x=f1(a,t)=a*cos(t)][y=f2(a,t)=a*sin(t)][z=f3(a,t)=a"}, {3, "R=f1(t)=2][Agh=f2(t)=t][Agv=f3(t)=0"},
        {4, "R=f1(a,t)=1][Agh=f2(a,t)=a][Agv=f3(a,t)=t"}, {5, "D(M,u):[(1,2,3)][(0,1,0)]"},
        {6, "P(M,u,v):[(0,0,0)][(1,0,0)][(0,1,0)]"}, {7, "Plan:[x+y+z=1]"}, {8, "Segment:[(0,0,0)][(1,1,1)]"},
        {9, "Point:[(1,-2P,3)]"}, {14, "x^2+y^2<z<1"}, {-1, "effacée"},
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

// The reading's forms and refusals are the settings' own tables; here values
// put at random places: refused in words and changing nothing, or read finite
// (written again, the text reads back the same).
TEST(RobustesseFichiers, FichiersDeParametresMutesLusFinisOuRefuses)
{
    static const char* valeurs[] = {"1e999", "-1e999", "nan", "inf", "1e-400", "4e38", "32768", "0x10", "1,5", "",
                                    "#TRUE#", "2", "1e38", "\x1B", "+-1", ".", "-0"};
    const std::string valide = texteMemoire(Parametres{});
    DossierTemporaire dossier;
    int lus = 0;
    for (int essai = 0; essai < 1500; ++essai) {
        std::string texte = valide;
        for (int i = 1 + entier(2); i > 0; --i) {
            const std::size_t a = texte.find_last_of(",\n", std::size_t(entier(int(texte.size())))) + 1;
            texte.replace(a, texte.find_first_of(",\r\n", a) - a, unDe(valeurs));
        }
        remplace(dossier / "mem.log", texte);
        Parametres p, relu;
        if (auto erreur = lisMemoire(dossier / "mem.log", p)) {
            verifieMessage(erreur.message(), "lecture");
            ASSERT_EQ(texteMemoire(p), valide);
            continue;
        }
        lus += 1;
        texte = texteMemoire(p);
        ASSERT_EQ(texte.find_first_of("iInN"), std::string::npos) << texte;  // no inf, no nan
        ASSERT_FALSE(analyseMemoire(texte, "relu", relu)) << texte;
        ASSERT_EQ(texteMemoire(relu), texte);
    }
    EXPECT_GT(lus, 50);
    EXPECT_LT(lus, 1450);
}

}  // namespace
}  // namespace velorin
