#include "tova/events/eventerrors.h"

#include "vetra/error.h"

namespace Tova2 {

namespace {

const char* keyOf(EventError error)
{
    switch (error) {
    case EventError::BadDraggingSource:
        return "BadDraggingSource";
    case EventError::BadDragDropOutsideUsecase:
        return "BadDragDropOutsideUsecase";
    case EventError::UnrecognizedEvent:
        break;
    }
    return "UnrecognizedEvent";
}

} // namespace

void raise(EventError error)
{
    throw Vetra::Error("tova:events", keyOf(error));
}

} // namespace Tova2
