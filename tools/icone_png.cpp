// Renders the program's SVG icon into PNG files of the usual sizes, laid out
// as an icon theme: <folder>/<N>x<N>/apps/<name>.png.
//   icone_png ICON.svg FOLDER NAME SIZE [SIZE ...]
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc < 5) {
        std::fputs("Usage : icone_png ICONE.svg DOSSIER NOM TAILLE [TAILLE ...]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!svg.isValid()) {
        std::fprintf(stderr, "icone_png : %s n'est pas une image SVG lisible.\n", argv[1]);
        return 2;
    }
    for (int i = 4; i < argc; ++i) {
        const int taille = std::atoi(argv[i]);
        if (taille <= 0) {
            std::fprintf(stderr, "icone_png : taille incorrecte %s.\n", argv[i]);
            return 2;
        }
        QImage image(taille, taille, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        svg.render(&p);
        p.end();
        const QString dossier = QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(taille);
        const QString sortie = dossier + QLatin1Char('/') + QString::fromLocal8Bit(argv[3]) + QStringLiteral(".png");
        if (!QDir().mkpath(dossier) || !image.save(sortie, "PNG")) {
            std::fprintf(stderr, "icone_png : impossible d'écrire %s.\n", qPrintable(sortie));
            return 2;
        }
    }
    return 0;
}
