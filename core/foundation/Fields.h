#pragma once

#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// What reading does where a member's key is missing or its value is not of the member's type. Writing does not
/// depend on it: every member is written, but for an optional without a value, which is left out.
enum class Presence {
    /// A missing key, null or a wrong type fails the whole value.
    required,
    /// A missing key or null keeps the member's default; a wrong type fails the whole value.
    defaulted,
    /// A missing key, null, a wrong type and an unknown text all keep the member's default.
    tolerant,
};

/// One stored member of `Owner`. Members of type std::optional count as `defaulted`.
template <class Owner, class Member>
struct Field {
    std::string_view key;
    Member Owner::*member = nullptr;
    Presence presence = Presence::required;
};

template <class Type>
inline constexpr bool isOptional = false;
template <class Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

template <class Owner, class Member>
constexpr Field<Owner, Member> field(std::string_view key, Member Owner::*member,
                                     Presence presence = Presence::required) {
    return {key, member, isOptional<Member> ? Presence::defaulted : presence};
}

/// A type that is stored as an object describes its members once, beside its definition, in the order in which they
/// are written; that one description serves writing and reading:
///
///     constexpr auto fields(std::type_identity<Segment>) {
///         return std::tuple{field("kind", &Segment::kind), field("duration", &Segment::duration)};
///     }
template <class Type>
concept Described = requires {
    fields(std::type_identity<Type>{});
};

} // namespace velmorin
