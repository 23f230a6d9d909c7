#pragma once

#include <QString>

#include <stdexcept>

namespace TovaView {

/// A file that cannot be read, understood or written. `message` is one line for the user, naming
/// the file, and the line in it where that is known.
class FileError : public std::runtime_error {
public:
    /// `line` counts from 1; 0 when it is not known.
    FileError(const QString& file, int line, const QString& reason);

    const QString& message() const noexcept { return m_message; }

private:
    QString m_message;
};

/// The text on one line: control characters become blanks, and what exceeds 300 characters is cut.
QString oneLine(const QString& text);

} // namespace TovaView
