#pragma once

#include "tova/tova_export.h"

namespace Tova2 {

/// By the text; false for null.
TOVA_EXPORT bool isSameTypeName(const char* a, const char* b) noexcept;

/// Whether any of the bases is of the type.
template <class... Bases, class Object>
bool isaAnyOf(const Object& object, const char* typeName)
{
    return (static_cast<const Bases&>(object).Bases::isa(typeName) || ...);
}

} // namespace Tova2

// One of these is the last line of each public class: the name that scripts know it by, of the
// class alone and of an object, and `isa`, which is also true for the names of its bases. What
// follows is public.

/// Of a class that no other one of the library derives from.
#define TOVA_PLAIN_TYPE(name)                                                                      \
public:                                                                                            \
    static const char* staticGetFullyQualifiedKobjTypeName()                                       \
    {                                                                                              \
        return name;                                                                               \
    }                                                                                              \
    const char* getFullyQualifiedKobjTypeName() const                                              \
    {                                                                                              \
        return name;                                                                               \
    }                                                                                              \
    bool isa(const char* typeName) const                                                           \
    {                                                                                              \
        return ::Tova2::isSameTypeName(typeName, name);                                            \
    }                                                                                              \
    static_assert(sizeof(name) > 1)

/// Of a class that others derive from; an object answers for its own class.
#define TOVA_BASE_TYPE(name)                                                                       \
public:                                                                                            \
    static const char* staticGetFullyQualifiedKobjTypeName()                                       \
    {                                                                                              \
        return name;                                                                               \
    }                                                                                              \
    virtual const char* getFullyQualifiedKobjTypeName() const                                      \
    {                                                                                              \
        return name;                                                                               \
    }                                                                                              \
    virtual bool isa(const char* typeName) const                                                   \
    {                                                                                              \
        return ::Tova2::isSameTypeName(typeName, name);                                            \
    }                                                                                              \
    static_assert(sizeof(name) > 1)

/// Of a class that derives from such ones, which are named after it.
#define TOVA_DERIVED_TYPE(name, ...)                                                               \
public:                                                                                            \
    static const char* staticGetFullyQualifiedKobjTypeName()                                       \
    {                                                                                              \
        return name;                                                                               \
    }                                                                                              \
    const char* getFullyQualifiedKobjTypeName() const override                                     \
    {                                                                                              \
        return name;                                                                               \
    }                                                                                              \
    bool isa(const char* typeName) const override                                                  \
    {                                                                                              \
        return ::Tova2::isSameTypeName(typeName, name) ||                                          \
               ::Tova2::isaAnyOf<__VA_ARGS__>(*this, typeName);                                    \
    }                                                                                              \
    static_assert(sizeof(name) > 1)
