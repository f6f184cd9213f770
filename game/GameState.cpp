#include "GameState.h"

#include <QtGlobal>

namespace qx {

void indexFault(const char *what, int index)
{
    qFatal("QX: %s %d is out of range", what, index);
}

} // namespace qx
