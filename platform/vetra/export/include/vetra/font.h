#pragma once

#include "vetra/vetra_export.h"

#include <string>

namespace Vetra {

/// How text looks. Setters drop what is out of bounds, so that any font can be handed to the
/// toolkit.
class VETRA_EXPORT Font {
public:
    static constexpr double MaxSize = 1000;
    static constexpr std::size_t MaxFamilyLength = 256;
    static constexpr int Normal = 400;
    static constexpr int Bold = 700;

    /// The application's family at 10 points.
    Font() = default;
    explicit Font(const std::string& family, double size = 10, int weight = Normal,
                  bool italic = false);

    /// In UTF-8; empty means the application's own.
    const std::string& family() const noexcept { return m_family; }
    /// At most `MaxFamilyLength` bytes without control characters.
    void setFamily(const std::string& family);
    /// In points, above 0 and at most `MaxSize`.
    double size() const noexcept { return m_size; }
    void setSize(double size);
    /// 100 to 900; the toolkit gets the nearest hundred.
    int weight() const noexcept { return m_weight; }
    void setWeight(int weight);
    bool isBold() const noexcept { return m_weight >= 600; }
    void setBold(bool bold) { setWeight(bold ? Bold : Normal); }
    bool isItalic() const noexcept { return m_italic; }
    void setItalic(bool italic) { m_italic = italic; }
    bool isUnderline() const noexcept { return m_underline; }
    void setUnderline(bool underline) { m_underline = underline; }

    bool operator==(const Font&) const = default;

private:
    std::string m_family;
    double m_size = 10;
    int m_weight = Normal;
    bool m_italic = false;
    bool m_underline = false;
};

} // namespace Vetra
