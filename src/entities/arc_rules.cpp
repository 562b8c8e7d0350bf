#include "entities/arc_rules.h"
