#pragma once

#include "platform/core/RaisedError.h"

#include <QString>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

/// An ordered, 1-based collection whose items may carry a string key, compared without regard
/// to case. A missing key is runtime error 5, a duplicate key 457, an index out of range 9.
template <class T>
class Collection
{
    struct Entry
    {
        T value;
        std::optional<std::string> foldedKey;
    };

public:
    /// Where an item goes relative to another one: by 1-based index or by key.
    using Position = std::variant<int, std::string>;

    void add(T item, std::optional<std::string> key = std::nullopt)
    {
        insertAt(m_entries.size(), std::move(item), std::move(key));
    }
    void addBefore(T item, std::optional<std::string> key, const Position &before)
    {
        insertAt(indexOf(before), std::move(item), std::move(key));
    }
    void addAfter(T item, std::optional<std::string> key, const Position &after)
    {
        insertAt(indexOf(after) + 1, std::move(item), std::move(key));
    }

    T &item(int index) { return m_entries[indexOf(Position(index))].value; }
    const T &item(int index) const { return m_entries[indexOf(Position(index))].value; }
    T &item(const std::string &key) { return m_entries[indexOf(Position(key))].value; }
    const T &item(const std::string &key) const { return m_entries[indexOf(Position(key))].value; }

    /// The item under `key`, or nullptr: a look-up that is allowed to find nothing.
    T *find(const std::string &key)
    {
        const auto found = keyIndex().find(fold(key));
        return found == keyIndex().end() ? nullptr : &m_entries[found->second].value;
    }
    bool contains(const std::string &key) const { return keyIndex().count(fold(key)) != 0; }

    void remove(const Position &position)
    {
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(indexOf(position)));
        m_indexValid = false;
    }
    void clear()
    {
        m_entries.clear();
        m_indexValid = false;
    }

    int count() const { return static_cast<int>(m_entries.size()); }
    bool empty() const { return m_entries.empty(); }

    /// Range-for over the items in order.
    class iterator
    {
    public:
        explicit iterator(typename std::vector<Entry>::iterator it) : m_it(it) {}
        T &operator*() const { return m_it->value; }
        T *operator->() const { return &m_it->value; }
        iterator &operator++()
        {
            ++m_it;
            return *this;
        }
        bool operator==(const iterator &other) const { return m_it == other.m_it; }
        bool operator!=(const iterator &other) const { return m_it != other.m_it; }

    private:
        typename std::vector<Entry>::iterator m_it;
    };
    iterator begin() { return iterator(m_entries.begin()); }
    iterator end() { return iterator(m_entries.end()); }

private:
    static std::string fold(const std::string &key)
    {
        return QString::fromStdString(key).toCaseFolded().toStdString();
    }

    const std::unordered_map<std::string, std::size_t> &keyIndex() const
    {
        if (!m_indexValid) {
            m_keyIndex.clear();
            for (std::size_t i = 0; i < m_entries.size(); ++i) {
                if (m_entries[i].foldedKey)
                    m_keyIndex.emplace(*m_entries[i].foldedKey, i);
            }
            m_indexValid = true;
        }
        return m_keyIndex;
    }

    std::size_t indexOf(const Position &position) const
    {
        if (const int *index = std::get_if<int>(&position)) {
            if (*index < 1 || *index > count())
                raiseRuntimeError(RuntimeErrorNumber::SubscriptOutOfRange);
            return static_cast<std::size_t>(*index - 1);
        }
        const auto found = keyIndex().find(fold(std::get<std::string>(position)));
        if (found == keyIndex().end())
            raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
        return found->second;
    }

    void insertAt(std::size_t at, T item, std::optional<std::string> key)
    {
        std::optional<std::string> folded;
        if (key) {
            folded = fold(*key);
            if (keyIndex().count(*folded))
                raiseRuntimeError(RuntimeErrorNumber::DuplicateKey);
        }
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(at),
                         Entry{std::move(item), folded});
        if (at == m_entries.size() - 1 && m_indexValid && folded)
            m_keyIndex.emplace(*folded, at);
        else if (at != m_entries.size() - 1)
            m_indexValid = false;
    }

    std::vector<Entry> m_entries;
    mutable std::unordered_map<std::string, std::size_t> m_keyIndex;
    mutable bool m_indexValid = true;
};
