#pragma once

#include <OstrelLib/Export.h>

#include <tl/expected.hpp>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace Ostrel {

/// Growable, contiguous sequence.
template <class T>
using Array = std::vector<T>;

/// Growable sequence that is filled and emptied at its end.
template <class T>
using Stack = std::vector<T>;

/// Elements that somebody else owns; valid as long as their owner keeps them in place.
template <class T>
using ArrayView = std::span<T>;

/// A value or nothing.
template <class T>
using Optional = std::optional<T>;

/// Owned callable; may be empty, and calling an empty one throws `std::bad_function_call`.
template <class Signature>
using Function = std::function<Signature>;

/// Shared owner; the last one destroys the object.
template <class T>
using SharedPtr = std::shared_ptr<T>;

/// Sole owner.
template <class T>
using AutoPtr = std::unique_ptr<T>;

/// The result of something that can fail: a `T`, or the reason as an `E`.
template <class T, class E>
using Expected = tl::expected<T, E>;

/// The reason of a failure, from which every `Expected<T, E>` can be made.
template <class E>
using Unexpected = tl::unexpected<E>;

/// Base of whatever is destroyed through a pointer to its base.
struct OSTREL_API Polymorphic {
    Polymorphic() = default;
    Polymorphic(const Polymorphic&) = default;
    Polymorphic(Polymorphic&&) = default;
    Polymorphic& operator=(const Polymorphic&) = default;
    Polymorphic& operator=(Polymorphic&&) = default;
    virtual ~Polymorphic();
};

/// Base of things with an identity: they are neither copied nor moved.
class OSTREL_API Object : public Polymorphic {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object(Object&&) = delete;
    Object& operator=(const Object&) = delete;
    Object& operator=(Object&&) = delete;
    ~Object() override;
};

} // namespace Ostrel
