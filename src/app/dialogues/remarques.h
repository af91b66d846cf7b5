// The formula checker's remarks as the editors show them under a formula
// box: nothing for a formula read as typed; otherwise "Lue : " and the
// formula as the tracer will read it (the positions count in that text),
// then one remark a line. Brackets that are refused or end the program make
// the remarks an error: red, where warnings are brown.
#pragma once
#include <QString>

class QLabel;

#include "engine/lecture.h"

namespace velorin {

// Shows them in `etiquette`, in the colour of their gravity; its property
// "remarque" is 0 (none), 1 (warnings) or 2 (an error). `tape` is the box's
// text; `genre` the kind of the entry (it decides how the text is cleaned),
// `famille` the evaluator that will read it.
void montreRemarques(QLabel& etiquette, const QString& tape, int genre, Famille famille);

}  // namespace velorin
