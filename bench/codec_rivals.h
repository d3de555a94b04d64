/// The same typed records through other JSON libraries, driven by the codec's own registrations, so that every
/// contestant reads and writes the same values.
#ifndef BENCH_CODEC_RIVALS_H
#define BENCH_CODEC_RIVALS_H

#include <ajson/ajson.h>

#include <nlohmann/json.hpp>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <simdjson.h>

#include <stdexcept>
#include <string_view>

namespace rivals {

using ajson::detail::is_sequence;
using ajson::detail::is_text;
using ajson::detail::members_of;

template <std::size_t I, class T>
constexpr std::string_view nameOf() {
    return {members_of<T>::keys.name(I), members_of<T>::keys.name_size(I)};
}

// ---- RapidJSON: SAX events into records, by a table for each type

struct Type;
struct Field {
    std::string_view name;
    void *(*place)(void *record);
    const Type *type;
};
struct Type {
    void (*whole)(void *value, std::int64_t number) = nullptr;
    void (*real)(void *value, double number) = nullptr;
    void (*text)(void *value, const char *chars, std::size_t length) = nullptr;
    void *(*element)(void *array, std::size_t index) = nullptr;
    const Type *elementType = nullptr;
    const Field *fields = nullptr;
    std::size_t fieldCount = 0;
};

template <class T>
const Type *typeOf();

template <class T>
struct Fields {
    static const Field *table() {
        static const auto rows = [] {
            std::array<Field, members_of<T>::count> made{};
            members_of<T>::for_each([&]<std::size_t I, auto Member>() {
                using M = std::remove_cvref_t<decltype(std::declval<T &>().*Member)>;
                made[I] = {nameOf<I, T>(), [](void *record) -> void * { return &(static_cast<T *>(record)->*Member); },
                           typeOf<M>()};
            });
            return made;
        }();
        return rows.data();
    }
};

template <class T>
const Type *typeOf() {
    static const Type type = [] {
        Type made;
        if constexpr (std::is_arithmetic_v<T> || std::is_enum_v<T>) {
            made.whole = [](void *value, std::int64_t number) { *static_cast<T *>(value) = static_cast<T>(number); };
            made.real = [](void *value, double number) { *static_cast<T *>(value) = static_cast<T>(number); };
        } else if constexpr (is_text<T>) {
            made.text = [](void *value, const char *chars, std::size_t length) {
                static_cast<T *>(value)->assign(chars, length);
            };
        } else if constexpr (std::is_array_v<T>) {
            made.elementType = typeOf<std::remove_extent_t<T>>();
            made.element = [](void *array, std::size_t index) -> void * {
                return index < std::extent_v<T> ? &(*static_cast<T *>(array))[index] : nullptr;
            };
        } else if constexpr (is_sequence<T>) {
            made.elementType = typeOf<typename T::value_type>();
            made.element = [](void *array, std::size_t) -> void * { return &static_cast<T *>(array)->emplace_back(); };
        } else {
            made.fields = Fields<T>::table();
            made.fieldCount = members_of<T>::count;
        }
        return made;
    }();
    return &type;
}

class SaxHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, SaxHandler> {
public:
    SaxHandler(void *root, const Type *type) : m_place(root), m_type(type) {}

    bool Default() { return false; }
    bool Bool(bool value) { return number(value ? 1 : 0); }
    bool Int(int value) { return number(value); }
    bool Uint(unsigned value) { return number(value); }
    bool Int64(std::int64_t value) { return number(value); }
    bool Uint64(std::uint64_t value) { return number(static_cast<std::int64_t>(value)); }
    bool Double(double value) {
        if (!take() || m_type->real == nullptr)
            return false;
        m_type->real(m_place, value);
        return true;
    }
    bool String(const char *chars, rapidjson::SizeType length, bool) {
        if (!take() || m_type->text == nullptr)
            return false;
        m_type->text(m_place, chars, length);
        return true;
    }
    bool StartObject() { return open(); }
    bool StartArray() { return open(); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool EndArray(rapidjson::SizeType) { return close(); }
    bool Key(const char *chars, rapidjson::SizeType length, bool) {
        Frame &top = m_frames[m_depth - 1];
        const std::string_view name(chars, length);
        // The field behind the last one is the likely one.
        std::size_t at = top.next;
        if (at >= top.type->fieldCount || top.type->fields[at].name != name) {
            for (at = 0; at < top.type->fieldCount && top.type->fields[at].name != name; ++at) {
            }
            if (at == top.type->fieldCount)
                return false;
        }
        m_place = top.type->fields[at].place(top.object);
        m_type = top.type->fields[at].type;
        top.next = at + 1;
        return true;
    }

private:
    struct Frame {
        void *object;
        const Type *type;
        std::size_t next;
    };

    /// Makes m_place and m_type those of the value at hand.
    bool take() {
        if (m_depth == 0 || m_frames[m_depth - 1].type->element == nullptr)
            return true;
        Frame &top = m_frames[m_depth - 1];
        m_place = top.type->element(top.object, top.next++);
        m_type = top.type->elementType;
        return m_place != nullptr;
    }
    bool number(std::int64_t value) {
        if (!take() || m_type->whole == nullptr)
            return false;
        m_type->whole(m_place, value);
        return true;
    }
    bool open() {
        if (!take() || m_depth == m_frames.size())
            return false;
        m_frames[m_depth++] = {m_place, m_type, 0};
        return true;
    }
    bool close() {
        --m_depth;
        return true;
    }

    void *m_place;
    const Type *m_type;
    std::array<Frame, 64> m_frames{};
    std::size_t m_depth = 0;
};

template <class T>
void rapidRead(const std::string &text, T &value) {
    rapidjson::Reader reader;
    rapidjson::StringStream stream(text.c_str());
    SaxHandler handler(&value, typeOf<T>());
    if (reader.Parse(stream, handler).IsError())
        throw std::runtime_error("RapidJSON can't read its text");
}

template <class Writer, class T>
void rapidWrite(Writer &writer, const T &value) {
    if constexpr (std::is_floating_point_v<T>) {
        writer.Double(static_cast<double>(value));
    } else if constexpr (std::is_unsigned_v<T>) {
        writer.Uint64(value);
    } else if constexpr (std::is_integral_v<T> && sizeof(T) <= 4) {
        writer.Int(value);
    } else if constexpr (std::is_integral_v<T>) {
        writer.Int64(value);
    } else if constexpr (is_text<T>) {
        writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    } else if constexpr (is_sequence<T> || std::is_array_v<T>) {
        writer.StartArray();
        for (const auto &element : value)
            rapidWrite(writer, element);
        writer.EndArray();
    } else {
        writer.StartObject();
        members_of<T>::for_each([&]<std::size_t I, auto Member>() {
            constexpr std::string_view name = nameOf<I, T>();
            writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
            rapidWrite(writer, value.*Member);
        });
        writer.EndObject();
    }
}

// ---- simdjson, on demand; members are looked for in their order, or anywhere

template <bool InOrder, class Value, class T>
void simdRead(Value &&json, T &value) {
    if constexpr (std::is_same_v<T, bool>) {
        value = json.get_int64().value() != 0;
    } else if constexpr (std::is_floating_point_v<T>) {
        value = static_cast<T>(json.get_double().value());
    } else if constexpr (std::is_integral_v<T>) {
        value = static_cast<T>(json.get_int64().value());
    } else if constexpr (is_text<T>) {
        const std::string_view text = json.get_string().value();
        value.assign(text.data(), text.size());
    } else if constexpr (std::is_array_v<T>) {
        std::size_t index = 0;
        for (auto element : json.get_array())
            simdRead<InOrder>(element.value(), value[index++]);
    } else if constexpr (is_sequence<T>) {
        for (auto element : json.get_array())
            simdRead<InOrder>(element.value(), value.emplace_back());
    } else {
        simdjson::ondemand::object object = json.get_object();
        members_of<T>::for_each([&]<std::size_t I, auto Member>() {
            if constexpr (InOrder)
                simdRead<InOrder>(object.find_field(nameOf<I, T>()).value(), value.*Member);
            else
                simdRead<InOrder>(object.find_field_unordered(nameOf<I, T>()).value(), value.*Member);
        });
    }
}

// ---- nlohmann-json, through its tree

template <class T>
void treeRead(const nlohmann::json &json, T &value) {
    if constexpr (std::is_same_v<T, bool>) {
        value = json.get<int>() != 0;
    } else if constexpr (std::is_arithmetic_v<T>) {
        value = json.get<T>();
    } else if constexpr (is_text<T>) {
        value = json.get_ref<const std::string &>();
    } else if constexpr (std::is_array_v<T>) {
        std::size_t index = 0;
        for (const auto &element : json)
            treeRead(element, value[index++]);
    } else if constexpr (is_sequence<T>) {
        for (const auto &element : json)
            treeRead(element, value.emplace_back());
    } else {
        members_of<T>::for_each([&]<std::size_t I, auto Member>() {
            treeRead(json.at(std::string(nameOf<I, T>())), value.*Member);
        });
    }
}

template <class T>
nlohmann::json treeOf(const T &value) {
    if constexpr (std::is_same_v<T, bool>) {
        return value ? 1 : 0;
    } else if constexpr (std::is_arithmetic_v<T> || is_text<T>) {
        return value;
    } else if constexpr (is_sequence<T> || std::is_array_v<T>) {
        auto json = nlohmann::json::array();
        for (const auto &element : value)
            json.push_back(treeOf(element));
        return json;
    } else {
        auto json = nlohmann::json::object();
        members_of<T>::for_each([&]<std::size_t I, auto Member>() {
            json.emplace(nameOf<I, T>(), treeOf(value.*Member));
        });
        return json;
    }
}

} // namespace rivals

#endif
