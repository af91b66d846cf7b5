// Mouse events sent to a control: they live in the window bench.
#pragma once
#include "banc_fenetre.h"
