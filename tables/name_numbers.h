#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The nodes or the members of the tables: each has a name, in the order of its table, and a number
/// for the model. A name that is a whole number of 32 bits keeps it; "07" and "7" are one.
class NameNumbers {
public:
    /// Place of a name; nothing when it has not been added. UTF-8.
    std::optional<std::size_t> Find(std::string_view name) const;

    /// Adds a name, which is not there yet.
    void Add(const std::string& name);

    std::size_t size() const { return names_.size(); }
    const std::string& Name(std::size_t place) const { return names_[place]; }

    /// Numbers by place. Names that are none get the next ones, from 1 on, that no name has; where
    /// `isWanted` is false, a name that is none stays without: 0.
    std::vector<std::int32_t> Numbers(const std::vector<bool>& isWanted) const;
    std::vector<std::int32_t> Numbers() const {
        return Numbers(std::vector<bool>(names_.size(), true));
    }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    std::vector<std::string> names_;
    std::vector<std::optional<std::int32_t>> numbers_;
    std::unordered_map<std::int32_t, std::size_t> placesByNumber_;
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> placesByName_;
};
