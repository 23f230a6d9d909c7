#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vemit/listener.h"
#include "vetra/glrect.h"
#include "vetra/inputevents.h"
#include "widgets/objectwatch.h"

namespace Tova2 {

class GLCanvas;
class Scene;
class ViewerWindow;

/// The quickest way to look at a scene: a window filled by one canvas. It is made with `new` and
/// keeps itself alive from when it is shown to when it is closed, by the user or by `close`; then
/// it deletes itself, which the caller of `close` has to reckon with. The scene stays.
///
/// Without a display or a QApplication every operation does nothing, and queries give null. GUI
/// thread only.
class TOVA_EXPORT Viewer : public Vemit::Listener {
public:
    Viewer() = default;
    explicit Viewer(Scene* scene);
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;
    /// Allowed while it is shown, too, as long as it has not been closed.
    virtual ~Viewer();

    /// Made with the first call.
    GLCanvas* getCanvas() const;
    Scene* getScene() const;
    /// Null takes the scene away.
    void setScene(Scene* scene);

    /// At 200, 200 on the screen, 400 pixels wide and high.
    void show();
    /// In pixels of the screen, without the window's frame; fractions are cut off. With values that
    /// are not finite it is shown where it was last, or as by `show`.
    void showAt(const Vetra::GLRect<double>& geometry);
    /// Hidden it may be shown again. It is still closed by `closeOpenViewers`, and by nothing else.
    void hide();
    /// Hides and deletes it; inside its window's own events, when those have been dealt with.
    void close();
    /// Closes those that were shown and not closed since; not those that a callback shows
    /// meanwhile.
    static void closeOpenViewers();

    /// Whether it keeps itself alive: true while it is shown.
    virtual bool isCppManagingLifespan() const { return m_isManaged; }

private:
    bool isUsable() const;
    void makeWindow();
    void onClose();
    void onCloseEvent(Vetra::GLWidgetEvent2 event);

    mutable Widgets::ObjectWatch<GLCanvas> m_canvas;
    ViewerWindow* m_window = nullptr; // goes when the viewer goes
    bool m_isManaged = false;
    bool m_isClosed = false; // and waits for its deletion

    TOVA_BASE_TYPE("Tova2.Viewer");
};

} // namespace Tova2
