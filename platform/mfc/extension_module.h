#pragma once

namespace mfc {

// Makes AfxInitExtensionModule fail from now on, as a host does that refuses the module.
void RefuseExtensionModules(bool refuse);

// Extension modules that are registered at present.
int CountExtensionModules();

}  // namespace mfc
