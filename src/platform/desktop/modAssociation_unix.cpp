// SPDX-License-Identifier: GPL-3.0-or-later
// File association without a registry.
#include "platform/desktop/modAssociationSystem.h"

namespace ob {

RegistryEnd AssociateInRegistry(const std::u16string&)
{
    return RegistryEnd::NoRegistry;
}

} // namespace ob
