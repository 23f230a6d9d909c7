#pragma once

#include "vetra/glrect.h"
#include "widgets/globject.h"
#include "widgets/widgets_export.h"

#include <memory>
#include <vector>

class QLayout;

namespace Widgets {

class GLWidget2;

/// Places widgets inside the widget that it was given to (`GLWidget2::setLayout`); what is added
/// becomes a child of that one in the toolkit, invisible until then. It owns none of them. When its
/// widget is gone, all operations do nothing. One widget is in one layout, the last.
class WIDGETS_EXPORT GLLayout2 : public GLObject {
public:
    /// Between neighbours, in pixels.
    int getSpacing() const;
    void setSpacing(int spacing);
    /// The fields are the left, top, right and bottom margin.
    Vetra::GLRect<int> getMargins() const;
    void setMargins(const Vetra::GLRect<int>& margins);

    /// Without those that have ended.
    std::vector<GLWidget2*> getWidgets() const;
    /// It stays where it is, without being placed any more. A stranger does no harm.
    void removeWidget(GLWidget2* widget);

    bool isa(const char* typeName) const override;
    const char* getFullyQualifiedKobjTypeName() const override { return "Widgets.Layout"; }

protected:
    /// Takes over `layout`, null without a QApplication.
    GLLayout2(const Vetra::StringID& name, GLObject* parent, QLayout* layout);
    ~GLLayout2() override;
    void doEnd() override;

    QLayout* layout() const noexcept;
    /// Null, ended, or around the widget that this serves: none of these can be placed.
    bool accepts(const GLWidget2* widget) const;

private:
    struct Private;
    friend class GLWidget2;

    bool canServe(const GLWidget2& widget) const;
    void serve(GLWidget2& widget);

    const std::unique_ptr<Private> m_d;
};

/// A row or a column. What a stretch is to a length: 0 gives its wish, more a share of the rest.
class WIDGETS_EXPORT GLBoxLayout2 : public GLLayout2 {
public:
    enum class Direction { Horizontal, Vertical };
    GLBoxLayout2(Direction direction, const Vetra::StringID& name, GLObject* parent);

    void addWidget(GLWidget2* widget, int stretch = 0);
    /// An index out of range adds at the end.
    void insertWidget(int index, GLWidget2* widget, int stretch = 0);
    void setStretch(int index, int stretch);

    const char* getFullyQualifiedKobjTypeName() const override { return "Widgets.BoxLayout"; }
};

/// Rows and columns as they are needed, from 0 to `maxCells`; what lies outside is refused.
class WIDGETS_EXPORT GLGridLayout2 : public GLLayout2 {
public:
    static constexpr int maxCells = 1000;
    GLGridLayout2(const Vetra::StringID& name, GLObject* parent);

    void addWidget(GLWidget2* widget, int row, int column, int rowSpan = 1, int columnSpan = 1);
    void setRowStretch(int row, int stretch);
    void setColumnStretch(int column, int stretch);

    const char* getFullyQualifiedKobjTypeName() const override { return "Widgets.GridLayout"; }
};

} // namespace Widgets
