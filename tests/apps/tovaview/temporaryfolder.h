#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace TovaView {

/// A folder that lives as long as the test.
class TemporaryFolder {
public:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QString write(const char* name, const QByteArray& bytes, bool executable = false) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        if (executable)
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};

/// What the FileError of `action` says; empty when it throws none.
template <class Action>
std::string complaintOf(Action action)
{
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

} // namespace TovaView
