#pragma once

#include "support/rows.h"
#include "vetra/error.h"
#include "vetra/qt.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <limits>
#include <string>

namespace Vetra {

inline constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double Infinity = std::numeric_limits<double>::infinity();

/// The key of the error an action throws; empty when it throws none.
template <class Action>
std::string keyOf(Action action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.key();
    }
    return {};
}

/// A folder of its own for one test, removed with all in it.
class Folder {
public:
    std::string path(const std::string& name = {}) const
    {
        return m_folder.filePath(QString::fromStdString(name)).toStdString();
    }
    std::string write(const std::string& name, const QByteArray& bytes) const
    {
        QFile file(QString::fromStdString(path(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path(name);
    }
    static QByteArray read(const std::string& path)
    {
        QFile file(QString::fromStdString(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

private:
    QTemporaryDir m_folder;
};

inline QImage plainImage(int width, int height, const QColor& color)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

inline QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return buffer.data();
}

} // namespace Vetra
