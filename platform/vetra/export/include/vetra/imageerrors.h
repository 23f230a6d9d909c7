#pragma once

#include "vetra/vetra_export.h"

#include <string>

namespace Vetra {

/// Keys of message group "vetra:images"; an enumerator's name is the key the host looks up.
enum class ImageError {
    NotFound,        ///< no such file
    NotARegularFile, ///< a folder, device, pipe or socket
    OutsideRoot,     ///< the policy allows no file there
    Unreadable,      ///< the system refused to read it
    Empty,           ///< no bytes, or a drawing without a size
    TooLarge,        ///< more bytes or pixels than allowed
    UnknownFormat,   ///< none of the formats, or its decoder is not installed
    Damaged,         ///< the decoder gave up
    UnsafeDrawing,   ///< an SVG with scripts, outside references or other active parts
    TooComplex,      ///< an SVG, or a tree of compositor nodes, beyond the limits
    NullImage,       ///< nothing to save
    CannotEncode     ///< out of memory while saving
};

/// Throws Vetra::Error; `detail` is for readers of logs.
[[noreturn]] VETRA_EXPORT void raise(ImageError error, const std::string& detail = {});

} // namespace Vetra
