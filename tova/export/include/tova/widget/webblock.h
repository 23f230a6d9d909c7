#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace Tova2 {

/// A page of HTML that a canvas shows over its scene (`GLCanvas::setWebBlock`). The library brings
/// the interface only; an engine is brought by the component `webview`, or by the host.
class TOVA_EXPORT WebBlock {
public:
    /// Whoever ends a block deletes its widget, too, but not inside that widget's own events.
    virtual ~WebBlock();
    /// A child of the one that the block was made for; null once the toolkit has deleted it.
    virtual QWidget* widget() const = 0;
    /// UTF-8. The page must come to nothing but this text: it may be a stranger's.
    virtual void setHtml(const std::string& html) = 0;
    /// Shows the page at this multiple of its natural size.
    virtual void setScale(double scale) = 0;

    TOVA_BASE_TYPE("Tova2.WebBlock");
};

/// Makes a block in the widget that is to show it.
using WebBlockFactory = std::function<std::unique_ptr<WebBlock>(QWidget& parent)>;

/// Of the blocks made from now on. An empty function, as it is at first, makes none. GUI thread.
TOVA_EXPORT void setWebBlockFactory(WebBlockFactory factory);

} // namespace Tova2
