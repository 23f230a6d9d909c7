#pragma once

#include "vemit/emitter.h"
#include "vetra/cursor.h"
#include "vetra/eventsource.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/inputevents.h"
#include "vetra/size.h"
#include "widgets/globject.h"
#include "widgets/widgets_export.h"

#include <memory>
#include <string>

class QWidget;

namespace Widgets {

class GLLayout2;

/// What a widget tells of itself, each after it has dealt with the toolkit's event. What a listener
/// throws is reported (`Vetra::setErrorReporter`).
struct GLWidgetEmitters {
    Vemit::Emitter<Vetra::GLWidgetEvent2> close; ///< of a window, which is hidden next
    Vemit::Emitter<Vetra::GLWidgetEvent2> show;
    Vemit::Emitter<Vetra::GLWidgetEvent2> hide;
    Vemit::Emitter<Vetra::Size<int>> resize;  ///< the new size
    Vemit::Emitter<Vetra::GLPoint<int>> move; ///< the new place in the parent
};

/// An object of the screen: wraps exactly one widget of the toolkit (`toQt` in `widgets/qt.h`).
///
/// The object owns that widget, but lives on when the toolkit deletes it, with the host's window
/// for instance, and when the application object goes: then setters do nothing and getters give
/// default values. In its turn it never
/// takes the widget of another object along that has been put inside its own. Lengths are pixels
/// independent of the device; places are those in the parent, of a window those on the screen.
class WIDGETS_EXPORT GLWidget2 : public GLObject, public virtual Vetra::EventSource {
public:
    /// Places beyond 2^24 and sizes beyond `maxSide` or below 0 are cut off. A window, and what has
    /// no parent yet, gets no larger than all screens together, or 4096 where they are smaller.
    static constexpr int maxSide = 32767;
    Vetra::GLRect<int> getGeometry() const;
    void setGeometry(const Vetra::GLRect<int>& geometry);
    Vetra::GLPoint<int> getPosition() const;
    void setPosition(const Vetra::GLPoint<int>& position);
    Vetra::Size<int> getSize() const;
    void setSize(const Vetra::Size<int>& size);
    /// Where it is on the screen.
    Vetra::GLRect<int> getGlobalPosition() const;

    bool isVisible() const;
    void setVisible(bool visible);
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    virtual bool isEnabled() const;
    virtual void setEnabled(bool enabled);
    bool hasFocus() const;
    void setFocus();
    void clearFocus();

    /// Plain text: nothing in it is taken for markup.
    std::u16string getToolTip() const;
    void setToolTip(const std::u16string& text);
    Vetra::Cursor getCursor() const;
    void setCursor(const Vetra::Cursor& cursor);
    /// Back to the parent's.
    void unsetCursor();

    /// Asks for a repaint at the next turn of the event loop.
    void update();

    /// Null while there is none, or when it has ended.
    GLLayout2* getLayout() const;
    /// Lets `layout` place the widgets that are added to it; they become children in the toolkit.
    /// The layout before is ended, and this one with the widget. Null just does the former. A
    /// layout that holds this widget, or one around it, is refused.
    virtual void setLayout(GLLayout2* layout);

    GLWidgetEmitters& getGLWidgetEmitters() noexcept;

    bool isa(const char* typeName) const override;
    const char* getFullyQualifiedKobjTypeName() const override { return "Widgets.Widget"; }

protected:
    /// Takes `widget` over; null makes a widget of which nothing ever shows. When `parent` is a
    /// widget, it becomes a child of that one in the toolkit as well.
    ///
    /// The toolkit's widget gets no event once the end has begun, but is deleted by the event loop
    /// when that is running: its own timers and child widgets must be content with a dead owner.
    GLWidget2(const Vetra::StringID& name, GLObject* parent, QWidget* widget);
    ~GLWidget2() override;
    /// To be called last by who overrides it.
    void doEnd() override;

private:
    struct Private;
    friend WIDGETS_EXPORT QWidget* toQt(const GLWidget2& widget);

    const std::unique_ptr<Private> m_d;
};

} // namespace Widgets
