#include "tova/scene/sceneerrors.h"

#include "vetra/error.h"

namespace Tova2 {

void raise(SceneError error)
{
    throw Vetra::Error("tova:scene", error == SceneError::NoSceneWhenDisplayOff
                                         ? "NoSceneWhenDisplayOff"
                                         : "NoCreationDrawStyleToPop");
}

} // namespace Tova2
