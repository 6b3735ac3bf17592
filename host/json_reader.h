#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "host/json_stream.h"
#include "host/number_positions.h"

/// Characters of a key that a message shows.
inline constexpr std::size_t kLongestShownKey = 40;

/// Reads a JSON text of a known form from a file, value by value, and knows the way to the value
/// that it reads: "nodes[3].xyz[1]".
///
/// Everything that is not as it should be is a JsonError: "nodes[3].xyz[1]: expected a number". So
/// is a key that stands twice in one object.
class JsonReader {
public:
    /// Borrows `file`, opened for binary reading and at its beginning.
    explicit JsonReader(std::FILE* file);

    // Each of these reads the value that comes next, and is an error where that is another one.

    double ReadNumber();
    std::int32_t ReadInteger();
    bool ReadBoolean();
    std::string ReadString(const char* expected);

    /// As many numbers as `numbers` has room for, and no more.
    void ReadNumbers(std::span<double> numbers, const char* expected);

    /// True when it is null and has been read; otherwise nothing has been read.
    bool ReadNull();

    /// Reads any value.
    void Skip();

    /// Calls `readValue(key)` for every key; it reads the value.
    template <typename ReadValue>
    void ReadObject(const char* expected, const ReadValue& readValue) {
        if (!IsNext(JsonToken::Kind::kObject)) Fail(expected);
        Begin();
        SeenKeys seen;
        while (NextKey()) {
            if (!seen.Add(levels_.back().key)) FailTwice();
            readValue(levels_.back().key);
        }
    }

    /// The same for an object whose keys are numbers of nodes, members or load cases, as `what`
    /// says: calls `readValue(number)`. Two ways to write one number are one key.
    template <typename ReadValue>
    void ReadNumberedObject(const std::string& what, const ReadValue& readValue) {
        if (!IsNext(JsonToken::Kind::kObject))
            Fail("expected an object with " + what + " numbers as keys");
        Begin();
        NumberPositions seen;
        for (std::size_t i = 0; NextKey(); ++i) {
            const std::int32_t number = KeyAsNumber(what);
            if (seen.Add(number, i) != i) FailTwice();
            readValue(number);
        }
    }

    /// Calls `readElement(index)` for every element; it reads the element.
    template <typename ReadElement>
    void ReadArray(const char* expected, const ReadElement& readElement) {
        if (!IsNext(JsonToken::Kind::kArray)) Fail(expected);
        Begin();
        while (NextElement())
            readElement(levels_.back().index);
    }

    /// Nothing may follow.
    void ReadEnd() { stream_.Take(); }

    /// What the value that comes next is.
    bool IsNext(JsonToken::Kind kind) { return stream_.Peek().kind == kind; }

    /// Fails at the value that comes next or, between two values, at the one that they are in.
    [[noreturn]] void Fail(const std::string& expected) const;

    /// Fails at the array or object that the next value is in.
    [[noreturn]] void FailAround(const std::string& expected);

private:
    static constexpr std::size_t kBeforeFirst = static_cast<std::size_t>(-1);

    // An object or array that is being read, and how far that is.
    struct Level {
        bool isArray = false;
        std::size_t index = kBeforeFirst;
        std::string key;
    };

    // Keys of one object. Most have but a few.
    class SeenKeys {
    public:
        /// False when it is there already.
        bool Add(const std::string& key);

    private:
        std::array<std::string, 8> few_;
        std::size_t count_ = 0;
        std::set<std::string, std::less<>> more_;
    };

    void Begin();
    bool NextKey();
    bool NextElement();
    std::int32_t KeyAsNumber(const std::string& what) const;
    [[noreturn]] void FailTwice() const;
    std::string Path() const;

    JsonStream stream_;
    std::vector<Level> levels_;  ///< never moves: keys are handed out by reference
};
