// The tips of the side column: what each control does, in a sentence.
#include <QWidget>

#include "app/gestes/gestes.h"

namespace velorin {

namespace {

struct Bulle {
    const char* nom;  // object name of the control
    const char* texte;
};

const char* const reduire = "Réduire la colonne à cette case : le dessin prend toute la largeur";
const char* const reprendre = "Arrête un tour en cours, relit les paramètres provisoires (memprovi.log) et redessine";

const Bulle bulles[] = {
    {"Check1", reduire},
    {"Check2", reduire},
    {"Command3", "Redessine tout : le repère et chaque courbe tracée, avec les valeurs en vigueur"},
    {"Command6", "Mémorise l'écran dans une figure (comme Mémorisation → Sauver cet écran)"},
    {"Option2_0", "Xv : abscisse du point de vue (l'œil) ; +p et -p la changent"},
    {"Option2_1", "Yv : ordonnée du point de vue ; +p et -p la changent"},
    {"Option2_2", "Zv : cote du point de vue ; +p et -p la changent"},
    {"Option2_3", "Xd : composante x de la direction du regard ; +p et -p la changent"},
    {"Option2_4", "Yd : composante y de la direction du regard ; +p et -p la changent"},
    {"Option2_5", "Zd : composante z de la direction du regard ; +p et -p la changent"},
    {"Option2_6", "Rotvi : rotation de la tête autour du regard ; un pas de 1.0 la tourne de 5°"},
    {"List2", "Le pas que +p ajoute et que -p retire à la valeur cochée"},
    {"Command1", "+p : ajoute le pas choisi à la valeur cochée (Xv … Rotvi) ; O&K redessine"},
    {"Command2", "-p : retire le pas choisi de la valeur cochée (Xv … Rotvi) ; O&K redessine"},
    {"Command4", reprendre},
    {"Command5_0", "Un pas de rotation autour de l'axe (Oz), sens +, puis redessine"},
    {"Command5_1", "Un pas de rotation autour de l'axe (Oz), sens -, puis redessine"},
    {"Command5_2", "Un pas de rotation autour de l'axe (Oy), sens +, puis redessine"},
    {"Command5_3", "Un pas de rotation autour de l'axe (Oy), sens -, puis redessine"},
    {"Command5_4", "Un pas de rotation autour de l'axe (Ox), sens +, puis redessine"},
    {"Command5_5", "Un pas de rotation autour de l'axe (Ox), sens -, puis redessine"},
    {"Option1_0", "La lecture du pointeur montre le point sous la souris dont X vaut la valeur de la liste"},
    {"Option1_1", "La lecture du pointeur montre le point sous la souris dont Y vaut la valeur de la liste"},
    {"Option1_2", "La lecture du pointeur montre le point sous la souris dont Z vaut la valeur de la liste"},
    {"List1", "La valeur de la coordonnée fixée (X, Y ou Z fixe) pour lire le point sous la souris"},
    {"Command7", "Efface le dessin, relit les paramètres provisoires (memprovi.log) et redessine"},
    {"Label3", "Point de vue (Xv, Yv, Zv), direction du regard (Xd, Yd, Zd) et rotation de la tête"},
    {"Label4", "Intervalles, pas et pause en vigueur"},
    {"Label5", "Taille de la fenêtre de dessin, en twips"},
    {"Label1", "Le point sous la souris, ou le code de la dernière touche relâchée"},
};

}  // namespace

void bullesColonne(QWidget& colonne)
{
    for (const Bulle& b : bulles)
        if (auto* c = colonne.findChild<QWidget*>(QString::fromUtf8(b.nom)))
            c->setToolTip(QString::fromUtf8(b.texte));
}

}  // namespace velorin
