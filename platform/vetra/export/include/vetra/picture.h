#pragma once

#include "vetra/glrect.h"
#include "vetra/vetra_export.h"

#include <memory>

class QPainter;
class QPicture;

namespace Vetra {

/// A recorded drawing. Copies share the recording, which never changes. It is made from one
/// recorded in this process
/// (`fromQt`, `recordPicture` in vetra/qt.h); there is no way to load one from bytes, by intent: a
/// recording is replayed without checks.
class VETRA_EXPORT Picture {
public:
    Picture() noexcept = default;

    bool isEmpty() const noexcept { return !m_recording; }
    /// Of all that was drawn, in whole units; zero when empty.
    GLRect<double> boundingRect() const;
    /// Equal recordings, command by command.
    bool operator==(const Picture& other) const noexcept;

private:
    friend VETRA_EXPORT QPicture toQt(const Picture& picture);
    friend VETRA_EXPORT Picture fromQt(const QPicture& picture);

    struct Recording;
    std::shared_ptr<const Recording> m_recording;
};

} // namespace Vetra
