#pragma once

#include "tova/events/tool.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>

namespace Tova2 {

/// Makes the tools of one role.
class TOVA_EXPORT BaseToolConstructor {
public:
    virtual ~BaseToolConstructor();
    virtual Vetra::StringID getRole() const = 0;
    virtual Vetra::Holder<Tool> createTool() = 0;

    TOVA_BASE_TYPE("Tova2.BaseToolConstructor");
};

/// Makes tools of class `T` under its default role, by default construction unless told how.
template <class T>
class ToolConstructor final : public BaseToolConstructor {
public:
    using Make = std::function<Vetra::Holder<T>()>;

    ToolConstructor() : m_make([] { return Vetra::Holder<T>(new T); }) {}
    explicit ToolConstructor(Make make) : m_make(std::move(make)) {}
    Vetra::StringID getRole() const override { return T::staticGetDefaultRole(); }
    Vetra::Holder<Tool> createTool() override { return m_make ? m_make() : nullptr; }

private:
    Make m_make;
};

/// Constructors of tools by role.
class TOVA_EXPORT ToolFactory {
public:
    ToolFactory();
    ~ToolFactory();
    ToolFactory(const ToolFactory&) = delete;
    ToolFactory& operator=(const ToolFactory&) = delete;

    /// Takes ownership; replaces the constructor that had the role. Null is ignored.
    void addToolConstructor(BaseToolConstructor* constructor);
    /// Empty when no constructor has the role.
    Vetra::Holder<Tool> createTool(Vetra::StringID role);

private:
    // Shared, since a constructor may be replaced while it makes a tool.
    std::unordered_map<Vetra::StringID, std::shared_ptr<BaseToolConstructor>> m_constructors;

    TOVA_PLAIN_TYPE("Tova2.ToolFactory");
};

} // namespace Tova2
