#pragma once

// Everything that hosts use, by area.

#include "tova/nodes/customhittestfunctor.h"
#include "tova/nodes/node.h"
#include "tova/nodes/nodeerrors.h"
#include "tova/nodes/paintoptions.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/scene/scenechangetracker.h"
#include "tova/scene/sceneerrors.h"
