#include "vetra/eventsource.h"

namespace Vetra {

EventSource::~EventSource() = default;

} // namespace Vetra
