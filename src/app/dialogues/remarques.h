// The formula checker's remarks as the editors show them under a formula
// box: nothing for a formula read as typed; otherwise "Lue : " and the
// formula as the tracer will read it (the positions count in that text),
// then one remark a line.
#pragma once
#include <QString>

#include "engine/lecture.h"

namespace velorin {

// `tape` is the box's text; `genre` the kind of the entry (it decides how the
// text is cleaned), `famille` the evaluator that will read it.
QString remarquesFormule(const QString& tape, int genre, Famille famille);

}  // namespace velorin
