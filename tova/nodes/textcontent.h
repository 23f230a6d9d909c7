#pragma once

#include <QString>

#include <string>
#include <vector>

namespace Tova2 {

/// Valid UTF-8 of at most `Limits::textBytes`: what is not becomes U+FFFD, what is beyond an
/// ellipsis.
std::string acceptedText(const std::string& text);

/// The lines to lay out, without their ends, within `Limits::textRun` and `Limits::textLines`.
/// `text` has been accepted.
std::vector<QString> linesOf(const std::string& text);

} // namespace Tova2
