#include "platform/FileAssociation.h"

namespace vireo {

std::shared_ptr<FileAssociation> UserFileAssociation(const AssociationSetup&)
{
    return nullptr;
}

} // namespace vireo
