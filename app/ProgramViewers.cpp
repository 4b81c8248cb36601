#include "app/ViewerTable.h"

namespace vireo {

ViewerTable ProgramViewers()
{
    ViewerTable viewers;
    return viewers;
}

} // namespace vireo
