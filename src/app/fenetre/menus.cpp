// The menu tree of the main window: captions, indices and keyboard
// shortcuts. The entries are kept in indexed arrays named like the menus;
// an entry whose command is not available yet is shown disabled.
#include <QMenu>
#include <QMenuBar>

#include "app/fenetre/mirado.h"

namespace velorin {

namespace {

// Adds an entry; `actif` false shows it disabled.
QAction* article(QMenu* menu, const char* legende, const QKeySequence& raccourci = {}, bool actif = true)
{
    QAction* a = menu->addAction(QString::fromUtf8(legende));
    if (!raccourci.isEmpty())
        a->setShortcut(raccourci);
    a->setEnabled(actif);
    return a;
}

// The six colours of the curve and tangent menus, in menu order.
const char* const nomsCouleurs[] = {"Noir", "Rouge", "Vert", "Bleu", "Jaune", "Blanc"};

}  // namespace

void Mirado::creeMenus()
{
    QMenuBar* barre = menuBar();
    auto relie = [this](QAction* a, auto handler, int index) {
        connect(a, &QAction::triggered, this, [this, handler, index] { (this->*handler)(index); });
    };
    auto tableau = [&](std::vector<QAction*>& cible, QMenu* menu, std::initializer_list<const char*> legendes,
                       auto handler, std::initializer_list<QKeySequence> raccourcis = {}, bool actif = true) {
        auto r = raccourcis.begin();
        for (const char* legende : legendes) {
            QAction* a = article(menu, legende, r != raccourcis.end() ? *r++ : QKeySequence(), actif);
            if (handler)
                relie(a, handler, int(cible.size()));
            cible.push_back(a);
        }
    };
    using Gestion = void (Mirado::*)(int);
    const Gestion aucun = nullptr;
    const QKeySequence rien;

    // Fichiers
    mnus = barre->addMenu(QStringLiteral("Fichiers"));
    mnustp.push_back(article(mnus, "Quitter", QKeySequence(Qt::CTRL | Qt::Key_X)));
    relie(mnustp[0], &Mirado::mnustp_Click, 0);
    mnustp.push_back(article(mnus, "___________________", rien, false));
    menuLifi = mnus->addMenu(QStringLiteral("Choisir un fichier espace"));
    mnustp.push_back(menuLifi->menuAction());
    mnustp.push_back(article(mnus, "___________________", rien, false));
    menuLico = mnus->addMenu(QStringLiteral("Choisir un fichier plan"));
    mnustp.push_back(menuLico->menuAction());
    mnustp.push_back(article(mnus, "___________________", rien, false));

    // DISPONIBLES: the names that formulas may use (information only).
    mnufo = barre->addMenu(QStringLiteral("DISPONIBLES"));
    tableau(mnufoc, mnufo,
            {"polynôme,rationnelle,partie entière E( )", "sin,cos,tan,cotan,Arcsin,Arccos,Arctan,Arccotan",
             "exp,ln,log,sinh,cosh,tanh,cotanh", "Arcsinh,Arccosh,Arctanh,Arccotanh"},
            aucun);

    // PARAMETRER; index 9 of mnupara is not used.
    mnupar = barre->addMenu(QStringLiteral("PARAMETRER"));
    mnupari = article(mnupar, "Choisissez bien", rien, false);
    mnupara.assign(11, nullptr);
    const char* const legendesPara[] = {"le repère",   "les Couleurs", "InversionVidéo",
                                        "TraceRepère", "EffaceRepère", "Efface Ecran"};
    const Qt::Key touchesPara[] = {Qt::Key_R, Qt::Key_C, Qt::Key_I, Qt::Key_T, Qt::Key_S, Qt::Key_E};
    for (int i = 0; i < 6; ++i) {
        mnupara[i] = article(mnupar, legendesPara[i], QKeySequence(Qt::CTRL | touchesPara[i]));
        relie(mnupara[i], &Mirado::mnupara_Click, i);
    }
    mnupara[2]->setCheckable(true);
    QMenu* menuCl = mnupar->addMenu(QStringLiteral("Tracer la courbe en"));
    mnupara[6] = menuCl->menuAction();
    QMenu* menuCt = mnupar->addMenu(QStringLiteral("Tracer les tangentes en"));
    mnupara[7] = menuCt->menuAction();
    for (int i = 0; i < 6; ++i) {
        mnucl.push_back(article(menuCl, nomsCouleurs[i], QKeySequence(Qt::Key(Qt::Key_F1 + i))));
        relie(mnucl[i], &Mirado::mnucl_Click, i);
        mnuct.push_back(article(menuCt, nomsCouleurs[i], QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_F1 + i))));
        relie(mnuct[i], &Mirado::mnuct_Click, i);
    }
    mnupara[8] = article(mnupar, "Elaguer fonctions", rien, false);
    QMenu* menuPer = mnupar->addMenu(QStringLiteral("BOUCLES"));
    mnupara[10] = menuPer->menuAction();
    tableau(mnuper, menuPer,
            {"a1..(t1...t2)..a2", "t1..(a1...a2)..t2", "les deux(=>treilli)", "Les deux(=>treille rouge ,vert)"},
            &Mirado::mnuper_Click, {QKeySequence(Qt::Key_F7), QKeySequence(Qt::Key_F8), QKeySequence(Qt::Key_F9)});
    QMenu* menuMet = mnupar->addMenu(QStringLiteral("Comment Tracer?"));
    mnumet = menuMet->menuAction();
    tableau(mnuchcol, menuMet,
            {"Couleurs définies sans mémorisation", "Couleurs définies avec mémorisation", "Couleurs déjà mémorisées"},
            &Mirado::mnuchcol_Click,
            {QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_F1), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_F2),
             QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_F3)});
    QMenu* menuIpr = mnupar->addMenu(QStringLiteral("Imprimante"));
    mnuipr = menuIpr->menuAction();
    tableau(mnuipo, menuIpr, {"Portrait", "Paysage"}, &Mirado::mnuipo_Click);
    for (auto* groupe : {&mnucl, &mnuct, &mnuper, &mnuchcol, &mnuipo})
        for (QAction* a : *groupe)
            a->setCheckable(true);

    // CREER FONCTIONS: 0-4 the function editor, 5 the cloud editor, 6 the
    // object editor.
    mnut = barre->addMenu(QStringLiteral("CREER FONCTIONS"));
    tableau(mnutf, mnut,
            {"y = f(x) dans le plan", "x= f1(t):y =f2(t):z = f3(t)", "x= f1(a,t):y = f2(a,t):z = f3(a,t)",
             "R= f1(t):Agh = f2(t):Agv = f3(t)", "R=f1(a,t):Agh= f2(a,t):Agv=f3(a,t)", "Nuages d'encadrements",
             "Points*Droites*Plans*Segments"},
            &Mirado::mnutf_Click, {rien, QKeySequence(Qt::CTRL | Qt::Key_Y)});

    // ENVOYER
    mnue = barre->addMenu(QStringLiteral("ENVOYER"));
    menuGraphe = mnue->addMenu(QStringLiteral("LE GRAPHE de"));
    mnuf.push_back(menuGraphe->menuAction());
    mnufa.push_back(article(menuGraphe, "0)Au choix dans la liste complète", QKeySequence(Qt::CTRL | Qt::Key_L)));
    relie(mnufa[0], &Mirado::mnufa_Click, 0);
    mnuf.push_back(article(mnue, "LE MEME REPERE PROPRE", QKeySequence(Qt::CTRL | Qt::Key_A)));
    mnuf.push_back(article(mnue, "LE REPERE DE BASE(10-10)", QKeySequence(Qt::CTRL | Qt::Key_B)));
    relie(mnuf[1], &Mirado::mnuf_Click, 1);
    relie(mnuf[2], &Mirado::mnuf_Click, 2);

    // ROTATION
    mnurota = barre->addMenu(QStringLiteral("ROTATION "));
    QMenu* tour = mnurota->addMenu(QStringLiteral("Tour complet"));
    QMenu* angle = mnurota->addMenu(QStringLiteral("D'un certain angle entre -pi et pi"));
    mnurotu = {tour->menuAction(), angle->menuAction()};
    tableau(mnuroti, tour,
            {"D'axe (Oz) sens +", "D'axe (Oz) sens -", "D'axe (Oy) sens +", "D'axe (Oy) sens -", "D'axe (Ox) sens +",
             "D'axe (Ox) sens -", "de la vision sens +", "de la vision sens -"},
            &Mirado::mnuroti_Click,
            {QKeySequence(Qt::Key_F11), QKeySequence(Qt::Key_F12), QKeySequence(Qt::CTRL | Qt::Key_F11),
             QKeySequence(Qt::CTRL | Qt::Key_F12), QKeySequence(Qt::SHIFT | Qt::Key_F11),
             QKeySequence(Qt::SHIFT | Qt::Key_F12)});
    tableau(mnurotan, angle, {"D'axe [Oz)", "D'axe [Oy)", "D'axe [Ox)", "De la vision"}, &Mirado::mnurotan_Click);

    // ZOOM: the four factors and the list of drawn curves; the points in
    // memory come later.
    mnuz = barre->addMenu(QStringLiteral("ZOOM"));
    tableau(mnuzo, mnuz, {"+ 20%", "-  20%", "x 2", "/ 2", "Liste des visibles", "Points disponibles"},
            &Mirado::mnuzo_Click,
            {QKeySequence(Qt::CTRL | Qt::Key_G), QKeySequence(Qt::CTRL | Qt::Key_P), QKeySequence(Qt::CTRL | Qt::Key_Q),
             QKeySequence(Qt::CTRL | Qt::Key_U), QKeySequence(Qt::CTRL | Qt::Key_V),
             QKeySequence(Qt::CTRL | Qt::Key_D)});
    mnuzo[5]->setEnabled(false);

    // Déjà tracé: captioned with the catalogue in force by debutravail.
    mnutrace = barre->addMenu(QStringLiteral("Déjà tracé"));
    mnutra.push_back(article(mnutrace, "Liste des courbes tracées"));
    relie(mnutra[0], &Mirado::mnutra_Click, 0);

    // IMPRIMER, Mémorisation: come later.
    mnup = barre->addMenu(QStringLiteral("IMPRIMER"));
    mnuip = article(mnup, "LE GRAPHIQUE", rien, false);
    mnuipcop = article(mnup, "Copie d'écran", rien, false);
    mnumemo = barre->addMenu(QStringLiteral("Mémorisation"));
    tableau(mnumemfig, mnumemo, {"Sauver cet écran", "Lire un écran mémorisé"}, aucun, {}, false);
    creeMenuExporter();
    mnua = barre->addMenu(QStringLiteral("?"));
    tableau(mnuaide, mnua, {"A propos ", "Fichiers d'aide"}, &Mirado::mnuaide_Click);
    tableau(mnuaf, mnua,
            {"Click sur Ecran", "Si repère espace ou plan", "      B central => paramétrage",
             "      B Central + Shift=>liste courbes tracées", "      B droit => menu Zoom ou points",
             "      B droit + Alt => Création Label", "      ****", "Si repère du plan",
             "      B gauche + Shift=> déplacement du repère", "      B gauche + Alt=> fenêtre à zoomer",
             "----------------------", "Click sur un label", "      B droit=> Couleur", "      B droit +Shift=>Police",
             "      B droit +Ctrl=>Taille",
             // What the lines above leave out, after them so that their
             // indexes stay.
             "----------------------", "Sans touche", "      B gauche glissé=> rotation (espace), déplacement (plan)",
             "      Molette=> zoom (plan : autour de la souris)",
             "      Édition → Nouveau label… puis click => Création Label",
             "      Édition → Grossir un rectangle… (plan) => fenêtre à zoomer", "      Menu Rendu => style du dessin"},
            aucun);
    mnuaf[10]->setEnabled(false);
    mnuaf[15]->setEnabled(false);

    // Pruning and points in memory.
    mnupara[8]->setEnabled(true);
    relie(mnupara[8], &Mirado::mnupara_Click, 8);
    mnuzo[5]->setEnabled(true);

    // Every menu and entry is named like its array; an entry's place in
    // its array is its "index".
    const std::pair<QMenu*, const char*> menus[] = {
        {mnus, "mnus"},         {mnufo, "mnufo"},          {mnupar, "mnupar"}, {mnut, "mnut"},
        {mnue, "mnue"},         {mnurota, "mnurota"},      {mnuz, "mnuz"},     {mnutrace, "mnutrace"},
        {mnup, "mnup"},         {mnumemo, "mnumemo"},      {mnua, "mnua"},     {menuLifi, "menuLifi"},
        {menuLico, "menuLico"}, {menuGraphe, "menuGraphe"}};
    for (const auto& [menu, nom] : menus)
        menu->setObjectName(QString::fromUtf8(nom));
    const std::pair<QAction*, const char*> seuls[] = {
        {mnupari, "mnupari"}, {mnumet, "mnumet"}, {mnuipr, "mnuipr"}, {mnuip, "mnuip"}, {mnuipcop, "mnuipcop"}};
    for (const auto& [action, nom] : seuls)
        action->setObjectName(QString::fromUtf8(nom));
    const std::pair<std::vector<QAction*>*, const char*> tableaux[] = {
        {&mnustp, "mnustp"},       {&mnufoc, "mnufoc"},     {&mnupara, "mnupara"},   {&mnucl, "mnucl"},
        {&mnuct, "mnuct"},         {&mnuper, "mnuper"},     {&mnuchcol, "mnuchcol"}, {&mnuipo, "mnuipo"},
        {&mnutf, "mnutf"},         {&mnuf, "mnuf"},         {&mnufa, "mnufa"},       {&mnurotu, "mnurotu"},
        {&mnuroti, "mnuroti"},     {&mnurotan, "mnurotan"}, {&mnuzo, "mnuzo"},       {&mnutra, "mnutra"},
        {&mnumemfig, "mnumemfig"}, {&mnuaide, "mnuaide"},   {&mnuaf, "mnuaf"}};
    for (const auto& [liste, nom] : tableaux)
        for (int i = 0; i < int(liste->size()); ++i)
            nommeArticle((*liste)[i], nom, i);

    // Checked at start: the colours in force, the first loop order, the
    // first colour policy, landscape printing.
    marqueChoix();
}

void Mirado::nommeArticle(QAction* article, const char* tableau, int index)
{
    if (!article)
        return;
    article->setObjectName(QString::fromUtf8(tableau));
    article->setProperty("index", index);
}

}  // namespace velorin
