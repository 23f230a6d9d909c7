#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/color.h"
#include "vetra/gradient.h"
#include "vetra/image.h"

#include <optional>
#include <string>

namespace Tova2 {

/// The backdrop of a scene: a colour, over it a gradient, over that an image, or none of them. A
/// plain value.
///
/// The gradient lies in the scene when its coordinates are logical, and moves and grows with it;
/// in the other coordinate modes it spans the view or the picture, whatever part of the scene that
/// shows. The image covers the view or the picture from its middle on, undistorted.
class TOVA_EXPORT Background {
public:
    void setColor(const Vetra::Color& color) noexcept { m_color = color; }
    /// Transparent when there is none.
    Vetra::Color getColor() const noexcept { return m_color.value_or(Vetra::Color::fromPacked(0)); }
    bool hasColor() const noexcept { return m_color.has_value(); }
    void clearColor() noexcept { m_color.reset(); }

    void setGradient(const Vetra::Gradient& gradient) { m_gradient = gradient; }
    const Vetra::Gradient& getGradient() const noexcept { return m_gradient; }
    /// A gradient without stops counts as none.
    bool hasGradient() const noexcept { return !m_gradient.isEmpty(); }
    void clearGradient() { m_gradient = {}; }

    /// The path of a file. It is read when first asked for, once, until another path is set. What
    /// files may be read is a matter of `Vetra::ImageCompositor::Manager`.
    void setImage(const std::string& path);
    const std::string& getImage() const noexcept { return m_imagePath; }
    /// False as well for a file that cannot be read.
    bool hasImage() const;
    void clearImage() { setImage({}); }
    /// Empty exactly when `hasImage` is false.
    Vetra::Holder<Vetra::Image> loadedImage() const;

    /// Where the screen shows few colours (see LodColorDepth): makes the gradient's first colour
    /// the colour, and drops the gradient. Without stops nothing happens.
    void overrideGradientIfLowColorMode();

    /// Exact; images are equal by path.
    bool operator==(const Background& other) const noexcept;

private:
    enum class Availability { Unknown, Absent, Present };

    std::optional<Vetra::Color> m_color;
    Vetra::Gradient m_gradient;
    std::string m_imagePath;
    mutable Vetra::Holder<Vetra::Image> m_image;
    mutable Availability m_availability = Availability::Unknown;

    TOVA_PLAIN_TYPE("Tova2.Background");
};

} // namespace Tova2
