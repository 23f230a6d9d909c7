#include "vetra/font.h"

#include <algorithm>

namespace Vetra {

Font::Font(const std::string& family, double size, int weight, bool italic) : m_italic(italic)
{
    setFamily(family);
    setSize(size);
    setWeight(weight);
}

void Font::setFamily(const std::string& family)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
    if (family.size() <= MaxFamilyLength && std::none_of(family.begin(), family.end(), isControl))
        m_family = family;
}

void Font::setSize(double size)
{
    // Not `size <= 0 || size > MaxSize`: NaN has to be dropped as well.
    if (size > 0 && size <= MaxSize)
        m_size = size;
}

void Font::setWeight(int weight)
{
    if (weight >= 100 && weight <= 900)
        m_weight = weight;
}

} // namespace Vetra
