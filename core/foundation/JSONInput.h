#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace velmorin {

/// One JSON value while its text is being read, front to back (RFC 8259). Every value must be used exactly once, by
/// one of the read operations, a walk over its parts, or `skip`; each answers false when the text is not JSON or the
/// value is of another type, after which reading of the whole text must stop. Any thread.
class JSONInput {
public:
    enum class Kind { null, boolean, number, string, array, object };

    /// How deep arrays and objects may be nested. More counts as malformed.
    static constexpr std::size_t maximumDepth = 512;

    /// Reads `text`, which must hold exactly one value with nothing but white space around it, as UTF-8.
    /// `visit(JSONInput&) -> bool` uses that value. False when the text is malformed or `visit` answered false.
    template <class Visit>
    static bool read(std::string text, Visit&& visit) {
        return readText(text, {&callWithValue<std::remove_reference_t<Visit>>, &visit});
    }

    /// The kind as the first character tells it, and null for a character that starts no value; the rest of the value
    /// may still turn out malformed.
    Kind kind();

    bool read(bool& value);
    /// Reads a number that is whole and fits, however it is written: 25, 25.0 and 2.5e1 are the same.
    bool read(std::int64_t& value);
    /// Reads any number, exactly rounded. A number too large for a double is refused.
    bool read(double& value);
    bool read(std::string& value);
    /// The own characters of an element or member, checked to be one well-formed value. Not for the outermost value.
    bool readRaw(std::string& json);
    /// Checks the value and passes over it.
    bool skip();

    /// Walks over an object: `visit(std::string_view key, JSONInput&) -> bool` for each member, in order, repeated
    /// keys included. The key is valid only during that call. Stops when `visit` answers false.
    template <class Visit>
    bool forEachMember(Visit&& visit) {
        return visitMembers({&callWithMember<std::remove_reference_t<Visit>>, &visit});
    }

    /// Walks over an array: `visit(JSONInput&) -> bool` for each element, in order. Stops when it answers false.
    template <class Visit>
    bool forEachElement(Visit&& visit) {
        return visitElements({&callWithValue<std::remove_reference_t<Visit>>, &visit});
    }

private:
    /// The parser's own value, hidden so that its header stays out of ours.
    struct Parsed;

    /// References to callables, without the cost of owning them.
    struct ValueVisitor {
        bool (*call)(void*, JSONInput&);
        void* context;
        bool operator()(JSONInput& value) const { return call(context, value); }
    };
    struct MemberVisitor {
        bool (*call)(void*, std::string_view, JSONInput&);
        void* context;
        bool operator()(std::string_view key, JSONInput& value) const { return call(context, key, value); }
    };

    template <class Visit>
    static bool callWithValue(void* context, JSONInput& value) {
        return (*static_cast<Visit*>(context))(value);
    }
    template <class Visit>
    static bool callWithMember(void* context, std::string_view key, JSONInput& value) {
        return (*static_cast<Visit*>(context))(key, value);
    }

    JSONInput(Parsed& parsed, std::size_t depth) : m_parsed{parsed}, m_depth{depth} {}

    static bool readText(std::string& text, ValueVisitor visit);
    bool visitMembers(MemberVisitor visit);
    bool visitElements(ValueVisitor visit);

    Parsed& m_parsed;
    std::size_t m_depth;
};

} // namespace velmorin
