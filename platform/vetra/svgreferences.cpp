#include "svgreferences.h"

#include "vetra/imageloader.h"

#include <algorithm>

namespace Vetra {

int SvgReferences::addElement(int parent, const QString& id)
{
    const int index = elementCount();
    m_elements.emplace_back();
    if (parent >= 0)
        m_elements[parent].children.push_back(index);
    if (!id.isEmpty())
        m_ids.insert(id, index);
    return index;
}

void SvgReferences::addUse(int element, const QString& id)
{
    m_elements[element].used = id;
}

bool SvgReferences::isBounded()
{
    return m_elements.empty() || measure(0, 1);
}

bool SvgReferences::measure(int index, int depth)
{
    if (depth > ImageLimits::MaxDepth)
        return false;
    Element& element = m_elements[index];
    if (element.weight > 0)
        return depth + element.height <= ImageLimits::MaxDepth;
    long long weight = 1;
    int height = 0;
    const auto absorb = [&](int part) {
        if (!measure(part, depth + 1))
            return false;
        weight += m_elements[part].weight;
        height = std::max(height, m_elements[part].height + 1);
        return weight <= ImageLimits::MaxElements;
    };
    const auto targets = element.used.isEmpty() ? QList<int>() : m_ids.values(element.used);
    if (!std::all_of(element.children.begin(), element.children.end(), absorb) ||
        !std::all_of(targets.begin(), targets.end(), absorb))
        return false;
    element.weight = weight;
    element.height = height;
    return true;
}

} // namespace Vetra
