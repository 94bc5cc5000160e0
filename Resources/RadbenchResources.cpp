#include "RadbenchResources.h"

#include <QtGlobal>

// Q_INIT_RESOURCE names a function of the generated resource code, which lives
// in the global namespace; so must its caller.
void InitRadbenchResources()
{
    Q_INIT_RESOURCE(models);
    Q_INIT_RESOURCE(icons);
}
