#include "vetra/imageerrors.h"

#include "vetra/error.h"

#include <array>

namespace Vetra {

void raise(ImageError error, const std::string& detail)
{
    static constexpr std::array keys = {"NotFound",      "NotARegularFile", "OutsideRoot",
                                        "Unreadable",    "Empty",           "TooLarge",
                                        "UnknownFormat", "Damaged",         "UnsafeDrawing",
                                        "TooComplex",    "NullImage",       "CannotEncode"};
    static_assert(keys.size() == std::size_t(ImageError::CannotEncode) + 1);
    throw Error("vetra:images", keys.at(static_cast<std::size_t>(error)), detail);
}

} // namespace Vetra
