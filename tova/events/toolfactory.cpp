#include "tova/events/toolfactory.h"

namespace Tova2 {

BaseToolConstructor::~BaseToolConstructor() = default;

ToolFactory::ToolFactory() = default;
ToolFactory::~ToolFactory() = default;

void ToolFactory::addToolConstructor(BaseToolConstructor* constructor)
{
    if (!constructor)
        return;
    auto& known = m_constructors[constructor->getRole()];
    if (known.get() != constructor)
        known.reset(constructor);
}

Vetra::Holder<Tool> ToolFactory::createTool(Vetra::StringID role)
{
    const auto found = m_constructors.find(role);
    if (found == m_constructors.end())
        return {};
    const auto constructor = found->second;
    return constructor->createTool();
}

} // namespace Tova2
