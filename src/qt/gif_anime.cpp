#include "qt/gif_anime.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <unordered_map>
#include <vector>

#include "base/texte_sur.h"

namespace velorin {

namespace {

struct Rectangle {
    int x = 0, y = 0, l = 0, h = 0;
};

// A run is written as a number in 7-bit groups, lowest first, the top bit of
// each byte saying that another follows: the colour's number times 16 plus the
// run's length when it is below 16 (0 otherwise, the length less 16 then
// following as a number of its own). Colour number 0 is a colour written out
// (three bytes) after the run; the numbers from 1 name the picture's first
// colours in the order they appear.
constexpr std::uint32_t couleursNumerotees = 4095;
constexpr int bitsTable = 13;
constexpr std::size_t tailleTable = std::size_t(1) << bitsTable;  // twice the numbered colours: short probes

void ecrisNombre(std::vector<std::uint8_t>& octets, std::uint32_t v)
{
    while (v >= 0x80) {
        octets.push_back(std::uint8_t(v | 0x80));
        v >>= 7;
    }
    octets.push_back(std::uint8_t(v));
}

std::uint32_t lisNombre(const std::uint8_t*& p)
{
    std::uint32_t v = 0;
    for (int decalage = 0;; decalage += 7) {
        const std::uint8_t o = *p++;
        v |= std::uint32_t(o & 0x7F) << decalage;
        if (!(o & 0x80))
            return v;
    }
}

}  // namespace

// A run read back: its colour (0xRRGGBB) and length.
struct ImageParPlages::Plage {
    std::uint32_t couleur;
    int longueur;
};

ImageParPlages::Plage ImageParPlages::lisPlage(const std::uint8_t*& p) const
{
    const std::uint32_t v = lisNombre(p);
    Plage plage{0, int(v & 15)};
    if (plage.longueur == 0)
        plage.longueur = int(lisNombre(p)) + 16;
    if (const std::uint32_t numero = v >> 4)
        plage.couleur = couleurs_[numero - 1];
    else {
        plage.couleur = std::uint32_t(p[0]) << 16 | std::uint32_t(p[1]) << 8 | p[2];
        p += 3;
    }
    return plage;
}

std::uint32_t ImageParPlages::numero(std::uint32_t couleur)
{
    if (table_.empty())
        table_.assign(tailleTable, 0);
    std::size_t k = (couleur * 0x9E3779B1u) >> (32 - bitsTable);  // the hash's top bits
    for (;; k = (k + 1) & (tailleTable - 1)) {
        if (table_[k] == 0) {
            if (couleurs_.size() == couleursNumerotees)
                return 0;
            couleurs_.push_back(couleur);
            table_[k] = std::uint16_t(couleurs_.size());
            return table_[k];
        }
        if (couleurs_[table_[k] - 1u] == couleur)
            return table_[k];
    }
}

void ImageParPlages::efface()
{
    octets_.clear();
    debuts_.assign(1, 0);
    couleurs_.clear();
    std::fill(table_.begin(), table_.end(), 0);
}

void ImageParPlages::ajoute(const QRgb* pixels)
{
    for (int x = 0; x < largeur_;) {
        const std::uint32_t c = pixels[x] & 0xFFFFFF;
        int n = 1;
        while (x + n < largeur_ && (pixels[x + n] & 0xFFFFFF) == c)
            ++n;
        const std::uint32_t num = numero(c);
        ecrisNombre(octets_, num << 4 | std::uint32_t(n < 16 ? n : 0));
        if (n >= 16)
            ecrisNombre(octets_, std::uint32_t(n - 16));
        if (num == 0)
            octets_.insert(octets_.end(), {std::uint8_t(c >> 16), std::uint8_t(c >> 8), std::uint8_t(c)});
        x += n;
    }
    debuts_.push_back(octets_.size());
}

void ImageParPlages::lis(int y, QRgb* pixels) const
{
    const std::uint8_t* p = octets_.data() + debuts_[std::size_t(y)];
    for (int x = 0; x < largeur_;) {
        const Plage plage = lisPlage(p);
        std::fill_n(pixels + x, plage.longueur, QRgb(0xFF000000u | plage.couleur));
        x += plage.longueur;
    }
}

bool ImageParPlages::memeLigne(int y, const ImageParPlages& autre) const
{
    // Runs are as long as they can be: two rows hold the same pixels when
    // they have the same runs.
    const std::uint8_t* p = octets_.data() + debuts_[std::size_t(y)];
    const std::uint8_t* q = autre.octets_.data() + autre.debuts_[std::size_t(y)];
    for (int x = 0; x < largeur_;) {
        const Plage a = lisPlage(p), b = autre.lisPlage(q);
        if (a.couleur != b.couleur || a.longueur != b.longueur)
            return false;
        x += a.longueur;
    }
    return true;
}

namespace {

// Where `image` differs from `avant` (same size); empty when they are the
// same. `a` and `b` hold a row of each.
Rectangle difference(const ImageParPlages& avant, const ImageParPlages& image, std::vector<QRgb>& a,
                     std::vector<QRgb>& b)
{
    const int L = image.largeur(), H = image.hauteur();
    auto ligneEgale = [&](int y) { return image.memeLigne(y, avant); };
    int y0 = 0, y1 = H - 1;
    while (y0 < H && ligneEgale(y0))
        ++y0;
    if (y0 == H)
        return {};
    while (y1 > y0 && ligneEgale(y1))
        --y1;
    int x0 = L, x1 = -1;
    for (int y = y0; y <= y1; ++y) {
        avant.lis(y, a.data());
        image.lis(y, b.data());
        int g = 0;
        while (g < x0 && a[g] == b[g])
            ++g;
        x0 = std::min(x0, g);
        int d = L - 1;
        while (d > x1 && a[d] == b[d])
            --d;
        x1 = std::max(x1, d);
    }
    return {x0, y0, x1 - x0 + 1, y1 - y0 + 1};
}

}  // namespace

// The palette of a frame's changed pixels, and each of their colours' index
// in it.
struct PaletteGif {
    std::vector<std::uint32_t> couleurs;             // 0xRRGGBB
    std::unordered_map<std::uint32_t, int> indices;  // every colour met
    bool exacte = true;                              // each colour met is in `couleurs`
};

namespace {

// The colours of the pixels of `image` that differ from `avant` in a
// rectangle (all of them when there is no `avant`), with their counts.
// Counted by runs: a drawing is mostly long runs of one colour.
std::unordered_map<std::uint32_t, std::size_t> comptes(const ImageParPlages* avant, const ImageParPlages& image,
                                                       const Rectangle& r, std::vector<QRgb>& tampon,
                                                       std::vector<QRgb>& ligne)
{
    std::unordered_map<std::uint32_t, std::size_t> n;
    n.reserve(1024);
    const bool tout = !avant;
    for (int y = r.y; y < r.y + r.h; ++y) {
        image.lis(y, ligne.data());
        const QRgb* p = ligne.data() + r.x;
        if (!tout)
            avant->lis(y, tampon.data());
        const auto* a = tout ? p : tampon.data() + r.x;
        std::uint32_t c = ~0u;
        std::size_t suite = 0;
        for (int x = 0; x < r.l; ++x) {
            if (!tout && p[x] == a[x])
                continue;
            const std::uint32_t v = p[x] & 0xFFFFFF;
            if (v != c) {
                if (suite)
                    n[c] += suite;
                c = v;
                suite = 0;
            }
            ++suite;
        }
        if (suite)
            n[c] += suite;
    }
    return n;
}

// At most `plafond` colours: all of them when they fit, otherwise the most
// frequent ones (the background, the curves' own colours), then, one by one,
// the colour farthest from every colour chosen so far: the rarer blends of
// the anti-aliasing keep a close colour each.
PaletteGif palette(const std::unordered_map<std::uint32_t, std::size_t>& comptes, std::size_t plafond)
{
    std::vector<std::pair<std::size_t, std::uint32_t>> parFrequence;
    parFrequence.reserve(comptes.size());
    for (const auto& [c, n] : comptes)
        parFrequence.emplace_back(n, c);
    // Most frequent first; equal counts by colour, so that the file does not
    // depend on the hash table's order.
    std::sort(parFrequence.begin(), parFrequence.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first > b.first : a.second < b.second;
    });
    PaletteGif pal;
    auto ecart = [](std::uint32_t a, std::uint32_t b) {
        const int dr = int(a >> 16) - int(b >> 16), dv = int((a >> 8) & 0xFF) - int((b >> 8) & 0xFF),
                  db = int(a & 0xFF) - int(b & 0xFF);
        return dr * dr + dv * dv + db * db;
    };
    const std::size_t n = parFrequence.size();
    pal.exacte = n <= plafond;
    const std::size_t frequentes = pal.exacte ? n : plafond / 2;
    std::vector<int> proche(n, 0), distance(n, 0);  // nearest colour chosen so far, and how far
    auto choisis = [&](std::size_t i) {
        const int index = int(pal.couleurs.size());
        const std::uint32_t c = parFrequence[i].second;
        pal.couleurs.push_back(c);
        pal.indices[c] = index;
        for (std::size_t k = 0; k < n; ++k) {
            const int e = ecart(parFrequence[k].second, c);
            if (index == 0 || e < distance[k]) {
                distance[k] = e;
                proche[k] = index;
            }
        }
    };
    for (std::size_t i = 0; i < frequentes; ++i)
        choisis(i);
    while (n > 0 && pal.couleurs.size() < plafond) {
        const std::size_t loin = std::size_t(std::max_element(distance.begin(), distance.end()) - distance.begin());
        if (distance[loin] == 0)
            break;
        choisis(loin);
    }
    for (std::size_t k = 0; k < n; ++k)
        pal.indices.emplace(parFrequence[k].second, proche[k]);
    return pal;
}

}  // namespace

int GifAnime::ecritOctets(GifFileType* gif, const GifByteType* octets, int n)
{
    auto* moi = static_cast<GifAnime*>(gif->UserData);
    if (moi->fichier_.ecris(std::string_view(reinterpret_cast<const char*>(octets), std::size_t(n))))
        return n;
    moi->ecritureEchouee_ = true;
    return 0;
}

GifAnime::GifAnime(EcritureEntiere& fichier, int largeur, int hauteur)
    : fichier_(fichier), largeur_(largeur), hauteur_(hauteur), precedente_(largeur)
{
    int code = 0;
    gif_ = EGifOpen(this, ecritOctets, &code);
    if (!gif_) {
        erreur_ = echec("l'ouverture");
        return;
    }
    EGifSetGifVersion(gif_, true);
    if (EGifPutScreenDesc(gif_, largeur, hauteur, 8, 0, nullptr) == GIF_ERROR) {
        erreur_ = echec("l'en-tête");
        return;
    }
    // The application block that makes viewers loop for ever (count 0).
    static const GifByteType application[] = {'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0'};
    static const GifByteType boucle[] = {1, 0, 0};
    if (EGifPutExtensionLeader(gif_, APPLICATION_EXT_FUNC_CODE) == GIF_ERROR ||
        EGifPutExtensionBlock(gif_, sizeof application, application) == GIF_ERROR ||
        EGifPutExtensionBlock(gif_, sizeof boucle, boucle) == GIF_ERROR || EGifPutExtensionTrailer(gif_) == GIF_ERROR)
        erreur_ = echec("l'en-tête");
}

GifAnime::~GifAnime()
{
    if (gif_)
        EGifCloseFile(gif_, nullptr);
}

Erreur GifAnime::echec(const char* etape)
{
    // A write that failed says why itself (a full disk...); the file is then
    // left unwritten.
    if (ecritureEchouee_) {
        if (auto erreur = fichier_.termine())
            return erreur;
    }
    return "Impossible d'écrire " + texteCite(fichier_.cible()) + " : le codage GIF a échoué (" + etape + ").";
}

Erreur GifAnime::ajoute(const QImage& source, int delaiMs)
{
    if (erreur_)
        return erreur_;
    const QImage image =
        source.format() == QImage::Format_RGB32 ? source : source.convertToFormat(QImage::Format_RGB32);
    if (image.width() != largeur_ || image.height() != hauteur_)
        return erreur_ = echec("une image d'une autre taille");
    ImageParPlages plages(largeur_);
    for (int y = 0; y < hauteur_; ++y)
        plages.ajoute(reinterpret_cast<const QRgb*>(image.constScanLine(y)));
    return ajoute(plages, delaiMs);
}

Erreur GifAnime::ajoute(ImageParPlages& image, int delaiMs)
{
    if (erreur_)
        return erreur_;
    if (image.largeur() != largeur_ || image.hauteur() != hauteur_)
        return erreur_ = echec("une image d'une autre taille");
    Rectangle r{0, 0, largeur_, hauteur_};
    const bool premiere = precedente_.hauteur() == 0;
    tampon_.resize(std::size_t(largeur_));
    ligne_.resize(std::size_t(largeur_));
    if (!premiere) {
        r = difference(precedente_, image, tampon_, ligne_);
        // A picture like the one before still needs its place in the
        // animation, for its delay: one unchanged pixel.
        if (r.l == 0)
            r = {0, 0, 1, 1};
    }
    // The palette of the frame before is kept while it shows every changed
    // colour exactly: most frames of a turn add no colour.
    const auto changees = comptes(premiere ? nullptr : &precedente_, image, r, tampon_, ligne_);
    bool garde = palette_ && (palette_->exacte || changees.empty());
    for (auto k = changees.begin(); garde && k != changees.end(); ++k)
        garde = palette_->indices.count(k->first) != 0;
    if (!garde)
        palette_ = std::make_unique<PaletteGif>(palette(changees, 255));
    const PaletteGif& pal = *palette_;
    // The index after the colours is transparent: the pixels of the
    // rectangle left as they were show the picture before through it.
    const int transparent = int(pal.couleurs.size());
    int taillePalette = 2;
    while (taillePalette < transparent + 1)
        taillePalette *= 2;
    std::vector<GifColorType> couleurs(std::size_t(taillePalette), GifColorType{0, 0, 0});
    for (std::size_t i = 0; i < pal.couleurs.size(); ++i)
        couleurs[i] = {GifByteType(pal.couleurs[i] >> 16), GifByteType(pal.couleurs[i] >> 8),
                       GifByteType(pal.couleurs[i])};
    ColorMapObject* carte = GifMakeMapObject(taillePalette, couleurs.data());
    if (!carte)
        return erreur_ = echec("la palette");
    GraphicsControlBlock gcb{};
    gcb.DisposalMode = DISPOSE_DO_NOT;
    gcb.UserInputFlag = false;
    gcb.DelayTime = (delaiMs + 5) / 10;
    gcb.TransparentColor = premiere ? NO_TRANSPARENT_COLOR : transparent;
    GifByteType extension[4];
    const std::size_t longueur = EGifGCBToExtension(&gcb, extension);
    bool bon = EGifPutExtension(gif_, GRAPHICS_EXT_FUNC_CODE, int(longueur), extension) != GIF_ERROR &&
               EGifPutImageDesc(gif_, r.x, r.y, r.l, r.h, false, carte) != GIF_ERROR;
    GifFreeMapObject(carte);
    std::vector<GifPixelType> ligne(std::size_t(r.l));
    for (int y = r.y; bon && y < r.y + r.h; ++y) {
        image.lis(y, ligne_.data());
        const QRgb* p = ligne_.data() + r.x;
        if (!premiere)
            precedente_.lis(y, tampon_.data());
        const auto* a = premiere ? p : tampon_.data() + r.x;
        std::uint32_t derniere = ~0u;
        GifPixelType index = 0;
        for (int x = 0; x < r.l; ++x) {
            if (!premiere && p[x] == a[x]) {
                ligne[std::size_t(x)] = GifPixelType(transparent);
                continue;
            }
            const std::uint32_t c = p[x] & 0xFFFFFF;
            if (c != derniere) {
                derniere = c;
                index = GifPixelType(pal.indices.at(c));
            }
            ligne[std::size_t(x)] = index;
        }
        bon = EGifPutLine(gif_, ligne.data(), r.l) != GIF_ERROR;
    }
    if (!bon)
        return erreur_ = echec("une image");
    // The picture added is the one before the next; the caller gets the old
    // one's memory back.
    std::swap(precedente_, image);
    image.efface();
    return {};
}

Erreur GifAnime::termine()
{
    if (erreur_)
        return erreur_;
    int code = 0;
    const int fin = EGifCloseFile(gif_, &code);
    gif_ = nullptr;
    if (fin == GIF_ERROR)
        return erreur_ = echec("la fin");
    return {};
}

}  // namespace velorin
