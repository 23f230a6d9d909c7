#pragma once

#include <QHash>
#include <QString>

#include <vector>

namespace Vetra {

/// The tree of a drawing's elements and what `use` adds to it. It tells how much there is once
/// every use is drawn: a few lines can stand for billions of elements.
class SvgReferences {
public:
    /// In document order; `parent` is an index returned before, or -1. Returns the element's index.
    int addElement(int parent, const QString& id);
    void addUse(int element, const QString& id);
    int elementCount() const { return static_cast<int>(m_elements.size()); }

    /// False for more elements or deeper nesting than the limits allow, so also for a circle.
    bool isBounded();

private:
    struct Element {
        std::vector<int> children;
        QString used;
        long long weight = 0; // elements drawn for this one; 0 until counted
        int height = 0;
    };
    bool measure(int index, int depth);

    std::vector<Element> m_elements;
    // Ids may be doubled; which one the renderer takes is its own affair, so all count.
    QMultiHash<QString, int> m_ids;
};

} // namespace Vetra
