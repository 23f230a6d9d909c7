#pragma once

#include "vetra/image.h"
#include "vetra/size.h"
#include "vetra/vetra_export.h"

#include <memory>

class QPixmap;

namespace Vetra {

/// Pixels in the form the screen likes best. Copies share them. GUI thread only, with an
/// application object.
class VETRA_EXPORT Pixmap {
public:
    Pixmap() noexcept = default;
    explicit Pixmap(const Image& image);

    bool isNull() const noexcept { return !m_pixels; }
    Size<int> size() const;
    int width() const { return size().width; }
    int height() const { return size().height; }
    Holder<Image> toImage() const;

    /// The same pixels by identity, not by content.
    bool operator==(const Pixmap& other) const noexcept;

private:
    friend VETRA_EXPORT QPixmap toQt(const Pixmap& pixmap);
    friend VETRA_EXPORT Pixmap fromQt(const QPixmap& pixmap);

    std::shared_ptr<const QPixmap> m_pixels; // null or a pixmap that is not null
};

} // namespace Vetra
