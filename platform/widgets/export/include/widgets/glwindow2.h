#pragma once

#include "widgets/glwidget2.h"

#include <string>

namespace Widgets {

/// A window of its own, hidden at first, filled by one widget. Closed by the user it is hidden and
/// can be shown again; who wants otherwise listens to `close`, where `destroy` is allowed, too.
///
/// Without a QApplication it can be made, but never shows.
class WIDGETS_EXPORT GLWindow2 : public GLWidget2 {
public:
    /// A window whose parent is a widget stays above that one's window.
    GLWindow2(const Vetra::StringID& name, GLObject* parent);

    std::u16string getTitle() const;
    void setTitle(const std::u16string& title);

    /// Null as well when it has ended or was put elsewhere.
    GLWidget2* getContent() const;
    /// Shows `content` in place of the layout that the window had. Who owns it stays the same. The
    /// content before is hidden and left without a place.
    void setContent(GLWidget2* content);

    /// As if the user had closed it.
    void close();

    bool isa(const char* typeName) const override;
    const char* getFullyQualifiedKobjTypeName() const override { return "Widgets.Window"; }

protected:
    ~GLWindow2() override;
};

} // namespace Widgets
