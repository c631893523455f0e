// A sequence with the interface of a std::vector that keeps a gap where it was last changed, so that
// a run of insertions or erasures at one place costs constant time each, as a host's menu answers a
// run of deletions at one position. Reading any position costs constant time; an insertion or
// erasure away from the last one first moves the gap, at a cost of the distance moved.
// Every insertion and erasure invalidates all iterators and references, where a vector's keeps those
// before the change.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace sim {

template <class T> class GapBuffer {
    template <bool Constant> class Iterator;

public:
    using value_type = T;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using reference = T&;
    using const_reference = const T&;
    using iterator = Iterator<false>;
    using const_iterator = Iterator<true>;

    GapBuffer() = default;
    GapBuffer(std::initializer_list<T> values) : m_before(values) {}
    // Implicit, so that code written when the sequence was a vector still assigns one to it.
    GapBuffer(std::vector<T> values) : m_before(std::move(values)) {}
    template <class InputIterator, class = typename std::iterator_traits<InputIterator>::iterator_category>
    GapBuffer(InputIterator first, InputIterator last) : m_before(first, last)
    {
    }

    size_type size() const { return m_before.size() + m_after.size(); }
    bool empty() const { return size() == 0; }

    T& operator[](size_type position)
    {
        return position < m_before.size() ? m_before[position] : afterAt(position);
    }
    const T& operator[](size_type position) const
    {
        return position < m_before.size() ? m_before[position] : afterAt(position);
    }
    T& at(size_type position) { return (checkPosition(position), (*this)[position]); }
    const T& at(size_type position) const { return (checkPosition(position), (*this)[position]); }
    T& front() { return (*this)[0]; }
    const T& front() const { return (*this)[0]; }
    T& back() { return (*this)[size() - 1]; }
    const T& back() const { return (*this)[size() - 1]; }

    iterator begin() { return {this, 0}; }
    iterator end() { return {this, static_cast<difference_type>(size())}; }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, static_cast<difference_type>(size())}; }
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }

    iterator insert(const_iterator position, T value)
    {
        moveGapTo(position.m_position);
        m_before.push_back(std::move(value));
        return {this, position.m_position};
    }

    template <class InputIterator, class = typename std::iterator_traits<InputIterator>::iterator_category>
    iterator insert(const_iterator position, InputIterator first, InputIterator last)
    {
        moveGapTo(position.m_position);
        m_before.insert(m_before.end(), first, last);
        return {this, position.m_position};
    }

    iterator erase(const_iterator position) { return erase(position, position + 1); }

    iterator erase(const_iterator first, const_iterator last)
    {
        moveGapTo(first.m_position);
        // The erased entries are the last ones of m_after, which holds its entries last first.
        m_after.erase(m_after.end() - (last - first), m_after.end());
        return {this, first.m_position};
    }

    void push_back(T value) { insert(cend(), std::move(value)); }
    void pop_back() { erase(cend() - 1); }

    void clear()
    {
        m_before.clear();
        m_after.clear();
    }

    // Element by element, as for a vector: wherever the gaps of the two are.
    friend bool operator==(const GapBuffer& a, const GapBuffer& b)
    {
        return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
    }
    friend bool operator!=(const GapBuffer& a, const GapBuffer& b) { return !(a == b); }

private:
    T& afterAt(size_type position) { return m_after[size() - 1 - position]; }
    const T& afterAt(size_type position) const { return m_after[size() - 1 - position]; }

    void checkPosition(size_type position) const
    {
        if (position >= size())
            throw std::out_of_range("GapBuffer::at: the position is beyond the end");
    }

    // Afterwards the entries before `position` are m_before, and the rest m_after.
    void moveGapTo(difference_type position)
    {
        const auto gap = static_cast<size_type>(position);
        while (m_before.size() > gap) {
            m_after.push_back(std::move(m_before.back()));
            m_before.pop_back();
        }
        while (m_before.size() < gap) {
            m_before.push_back(std::move(m_after.back()));
            m_after.pop_back();
        }
    }

    std::vector<T> m_before;  // the entries before the gap, in order
    std::vector<T> m_after;   // the entries after the gap, the last one first
};

// A position in a GapBuffer; it reads through the buffer, so it stays valid while the buffer is only
// read, wherever its gap is.
template <class T> template <bool Constant> class GapBuffer<T>::Iterator {
    using Buffer = std::conditional_t<Constant, const GapBuffer, GapBuffer>;

public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = std::conditional_t<Constant, const T*, T*>;
    using reference = std::conditional_t<Constant, const T&, T&>;

    Iterator() = default;
    Iterator(Buffer* buffer, difference_type position) : m_buffer(buffer), m_position(position) {}
    // An iterator converts to a const_iterator, as a vector's does.
    template <bool OtherConstant, class = std::enable_if_t<Constant && !OtherConstant>>
    Iterator(const Iterator<OtherConstant>& other) : m_buffer(other.m_buffer), m_position(other.m_position)
    {
    }

    reference operator*() const { return (*m_buffer)[static_cast<size_type>(m_position)]; }
    pointer operator->() const { return &**this; }
    reference operator[](difference_type offset) const { return *(*this + offset); }

    Iterator& operator++() { return *this += 1; }
    Iterator& operator--() { return *this -= 1; }
    Iterator operator++(int) { return std::exchange(*this, *this + 1); }
    Iterator operator--(int) { return std::exchange(*this, *this - 1); }
    Iterator& operator+=(difference_type offset) { return (m_position += offset, *this); }
    Iterator& operator-=(difference_type offset) { return (m_position -= offset, *this); }
    friend Iterator operator+(Iterator at, difference_type offset) { return at += offset; }
    friend Iterator operator+(difference_type offset, Iterator at) { return at += offset; }
    friend Iterator operator-(Iterator at, difference_type offset) { return at -= offset; }
    friend difference_type operator-(const Iterator& a, const Iterator& b)
    {
        return a.m_position - b.m_position;
    }

    friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_position == b.m_position; }
    friend bool operator!=(const Iterator& a, const Iterator& b) { return !(a == b); }
    friend bool operator<(const Iterator& a, const Iterator& b) { return a.m_position < b.m_position; }
    friend bool operator>(const Iterator& a, const Iterator& b) { return b < a; }
    friend bool operator<=(const Iterator& a, const Iterator& b) { return !(b < a); }
    friend bool operator>=(const Iterator& a, const Iterator& b) { return !(a < b); }

private:
    friend GapBuffer;
    template <bool> friend class Iterator;

    Buffer* m_buffer = nullptr;
    difference_type m_position = 0;
};

}  // namespace sim
