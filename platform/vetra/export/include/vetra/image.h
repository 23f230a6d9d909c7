#pragma once

#include "vetra/color.h"
#include "vetra/referenced.h"
#include "vetra/size.h"
#include "vetra/vetra_export.h"

#include <memory>
#include <string>

namespace Vetra {

class ImageSource;

/// A picture made of pixels, or a vector drawing that gives pixels at any size. It never changes;
/// share it through `Holder<Image>`.
class VETRA_EXPORT Image : public Referenced {
public:
    static constexpr int MaxSide = 16384;
    static constexpr long long MaxPixels = 64LL << 20;
    /// Both are above 0 and within `MaxSide` and `MaxPixels`.
    static bool isAcceptableSize(const Size<int>& pixels) noexcept;

    /// The null image.
    Image() noexcept;
    explicit Image(std::unique_ptr<const ImageSource> source) noexcept;

    bool isNull() const noexcept { return !m_source; }
    /// In pixels; of a vector drawing, its natural size.
    Size<int> size() const;
    int width() const { return size().width; }
    int height() const { return size().height; }
    bool isVector() const noexcept;
    /// Transparent outside. A vector drawing is rendered for it once, at its natural size.
    Color pixel(int x, int y) const;
    /// The whole of it at another size: drawn anew when vector, smoothly scaled otherwise. A null
    /// image when the size is not acceptable or memory is short.
    Holder<Image> rendered(const Size<int>& pixels) const;

    /// Writes a PNG file, all of it or nothing. Throws vetra:images/NullImage,
    /// vetra:images/CannotEncode or what `AtomicFile` throws.
    void savePng(const std::string& path) const;

    const ImageSource* source() const noexcept { return m_source.get(); }

protected:
    ~Image() override;

private:
    std::unique_ptr<const ImageSource> m_source; // null exactly when there are no pixels
};

} // namespace Vetra
