#pragma once

#include <cstdint>
#include <type_traits>

namespace Ostrel {

/// Says whether `|` of two enumerators of `E` makes a `Flags<E>`. Specialise it, next to the enumeration, as
/// `template <> struct IsFlag<E> : std::true_type {};` in namespace `Ostrel`. Without it `Flags<E>` still works, and
/// a set of several is written `Flags<E>(a) | b`.
template <class E>
struct IsFlag : std::false_type {};

/// A set of the enumerators of `E`, each of which is one bit (or several) of 32.
template <class E>
class Flags {
    static_assert(std::is_enum_v<E>, "Flags needs an enumeration");
    static_assert(sizeof(E) <= sizeof(std::uint32_t), "Flags holds 32 bits");

public:
    /// The empty set.
    constexpr Flags() noexcept = default;

    constexpr Flags(E flag) noexcept
        : _value(bitsOf(flag)) {}

    /// The set with these bits, whether or not `E` names them.
    [[nodiscard]] static constexpr Flags fromValue(std::uint32_t value) noexcept {
        Flags flags;
        flags._value = value;
        return flags;
    }

    [[nodiscard]] constexpr std::uint32_t value() const noexcept { return _value; }

    [[nodiscard]] constexpr bool isEmpty() const noexcept { return _value == 0; }

    /// True when every bit of `flag` is set. An enumerator of value 0 has no bit and is in no set.
    [[nodiscard]] constexpr bool has(E flag) const noexcept {
        const std::uint32_t bits = bitsOf(flag);
        return bits != 0 && (_value & bits) == bits;
    }

    constexpr void set(E flag) noexcept { _value |= bitsOf(flag); }

    constexpr void clear(E flag) noexcept { _value &= ~bitsOf(flag); }

    /// Sets the bits of `flag` when `on`, clears them otherwise.
    constexpr void set(E flag, bool on) noexcept {
        if (on) {
            set(flag);
        } else {
            clear(flag);
        }
    }

    constexpr Flags& operator|=(Flags other) noexcept {
        _value |= other._value;
        return *this;
    }

    constexpr Flags& operator&=(Flags other) noexcept {
        _value &= other._value;
        return *this;
    }

    friend constexpr Flags operator|(Flags a, Flags b) noexcept { return fromValue(a._value | b._value); }

    friend constexpr Flags operator&(Flags a, Flags b) noexcept { return fromValue(a._value & b._value); }

    friend constexpr bool operator==(Flags a, Flags b) noexcept = default;

private:
    static constexpr std::uint32_t bitsOf(E flag) noexcept {
        return static_cast<std::uint32_t>(static_cast<std::underlying_type_t<E>>(flag));
    }

    std::uint32_t _value = 0;
};

/// The set of two enumerators, for enumerations that `IsFlag` names. Code outside namespace `Ostrel` says
/// `using Ostrel::operator|;` first.
template <class E>
requires IsFlag<E>::value [[nodiscard]] constexpr Flags<E> operator|(E a, E b) noexcept {
    return Flags<E>(a) | Flags<E>(b);
}

} // namespace Ostrel
