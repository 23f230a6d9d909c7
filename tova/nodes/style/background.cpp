#include "tova/nodes/style/background.h"

#include "tova/nodes/style/lodcolordepth.h"

#include "vetra/imagecompositor.h"

#include <exception>

namespace Tova2 {

namespace {

Vetra::Holder<Vetra::Image> imageOrNull(const std::string& path)
{
    try {
        const auto image = Vetra::ImageCompositor::Manager::instance().load(path);
        return image && !image->isNull() ? image : nullptr;
    } catch (const std::exception&) {
        // A backdrop that cannot be read is no reason not to show the diagram.
        return nullptr;
    }
}

} // namespace

void Background::setImage(const std::string& path)
{
    if (path == m_imagePath)
        return;
    m_imagePath = path;
    m_image.reset();
    m_availability = Availability::Unknown;
}

bool Background::hasImage() const
{
    if (m_availability == Availability::Unknown) {
        m_availability = Availability::Absent;
        if (!m_imagePath.empty())
            m_image = imageOrNull(m_imagePath);
        if (m_image)
            m_availability = Availability::Present;
    }
    return m_availability == Availability::Present;
}

Vetra::Holder<Vetra::Image> Background::loadedImage() const
{
    return hasImage() ? m_image : nullptr;
}

void Background::overrideGradientIfLowColorMode()
{
    if (!hasGradient() || !LodColorDepth::isLow())
        return;
    m_color = m_gradient.stops().front().color;
    clearGradient();
}

bool Background::operator==(const Background& other) const noexcept
{
    return m_color == other.m_color && m_imagePath == other.m_imagePath &&
           m_gradient == other.m_gradient;
}

} // namespace Tova2
