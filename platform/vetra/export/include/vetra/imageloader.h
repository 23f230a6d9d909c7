#pragma once

#include "vetra/image.h"
#include "vetra/vetra_export.h"

#include <string>
#include <string_view>

namespace Vetra {

/// Which files an image may come from.
struct ImagePolicy {
    enum class Files {
        Any,       ///< whatever path is named; relative ones start at the working folder
        UnderRoot, ///< only what lies under `root` once links are resolved; relative ones start
                   ///< there
        None
    };
    Files files = Files::Any;
    std::string root;

    bool operator==(const ImagePolicy&) const = default;
};

/// Limits on what is loaded; those on pixels are in `Image`.
struct ImageLimits {
    static constexpr long long MaxFileBytes = 64LL << 20;
    static constexpr std::size_t MaxDrawingBytes = 4u << 20;
    static constexpr int MaxElements = 100000;
    static constexpr int MaxDepth = 200;
    static constexpr int MaxReferences = 50000;
    static constexpr std::size_t MaxTextRun = 32768;
};

/// Reads a PNG, JPEG or SVG file, or a BMP, GIF (first frame) or WebP one where the toolkit has the
/// decoder. Content decides on the format, not the name. Never blocks on a pipe or a device, never
/// reads a second file, and looks at the size before it takes memory for pixels. Needs a GUI
/// application object for SVG with text. Throws the keys of `ImageError`, with the path as detail.
VETRA_EXPORT Holder<Image> loadImage(const std::string& path, const ImagePolicy& policy = {});

/// The same for bytes already in memory; `name` is for messages.
VETRA_EXPORT Holder<Image> decodeImage(std::string_view bytes, const std::string& name);

} // namespace Vetra
