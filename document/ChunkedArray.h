#pragma once
// An array of values kept in chunks of 2^ChunkBits: appending never moves
// the values already held, so a long series is written once and its pages
// are faulted in once, where a growing std::vector would copy every value
// several times into fresh memory. Iterators are random access (an index),
// so the standard algorithms (binary search, stable sort, rotate) apply.
//
// The first chunk grows as a vector does, so that a short series costs its
// own size; every later chunk is reserved whole once it is needed, and the
// room it does not use yet is never touched.

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

template <typename T, unsigned ChunkBits = 10>
class ChunkedArray {
  static constexpr size_t kChunk = size_t{1} << ChunkBits;
  static constexpr size_t kMask = kChunk - 1;

  template <bool Const>
  class Iterator {
    using Owner = std::conditional_t<Const, const ChunkedArray, ChunkedArray>;

   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = std::conditional_t<Const, const T*, T*>;
    using reference = std::conditional_t<Const, const T&, T&>;

    Iterator() = default;
    Iterator(Owner* owner, size_t index) : owner_(owner), index_(index) {}
    // An iterator converts to a const_iterator.
    template <bool C = Const, typename = std::enable_if_t<C>>
    Iterator(const Iterator<false>& other) : owner_(other.owner_), index_(other.index_) {}

    reference operator*() const { return (*owner_)[index_]; }
    pointer operator->() const { return &(*owner_)[index_]; }
    reference operator[](difference_type n) const { return (*owner_)[index_ + static_cast<size_t>(n)]; }

    Iterator& operator++() {
      ++index_;
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++index_;
      return before;
    }
    Iterator& operator--() {
      --index_;
      return *this;
    }
    Iterator operator--(int) {
      Iterator before = *this;
      --index_;
      return before;
    }
    Iterator& operator+=(difference_type n) {
      index_ += static_cast<size_t>(n);
      return *this;
    }
    Iterator& operator-=(difference_type n) {
      index_ -= static_cast<size_t>(n);
      return *this;
    }
    friend Iterator operator+(Iterator it, difference_type n) { return it += n; }
    friend Iterator operator+(difference_type n, Iterator it) { return it += n; }
    friend Iterator operator-(Iterator it, difference_type n) { return it -= n; }
    friend difference_type operator-(const Iterator& a, const Iterator& b) {
      return static_cast<difference_type>(a.index_) - static_cast<difference_type>(b.index_);
    }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.index_ == b.index_; }
    friend bool operator!=(const Iterator& a, const Iterator& b) { return a.index_ != b.index_; }
    friend bool operator<(const Iterator& a, const Iterator& b) { return a.index_ < b.index_; }
    friend bool operator>(const Iterator& a, const Iterator& b) { return a.index_ > b.index_; }
    friend bool operator<=(const Iterator& a, const Iterator& b) { return a.index_ <= b.index_; }
    friend bool operator>=(const Iterator& a, const Iterator& b) { return a.index_ >= b.index_; }

   private:
    friend class ChunkedArray;
    friend class Iterator<true>;
    Owner* owner_ = nullptr;
    size_t index_ = 0;
  };

 public:
  using value_type = T;
  using iterator = Iterator<false>;
  using const_iterator = Iterator<true>;

  size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  T& operator[](size_t i) { return chunks_[i >> ChunkBits][i & kMask]; }
  const T& operator[](size_t i) const { return chunks_[i >> ChunkBits][i & kMask]; }
  T& back() { return chunks_.back().back(); }
  const T& back() const { return chunks_.back().back(); }

  iterator begin() { return iterator(this, 0); }
  iterator end() { return iterator(this, size_); }
  const_iterator begin() const { return const_iterator(this, 0); }
  const_iterator end() const { return const_iterator(this, size_); }

  void push_back(T&& value) {
    if (chunks_.empty() || chunks_.back().size() == kChunk) {
      chunks_.emplace_back();
      if (chunks_.size() > 1) chunks_.back().reserve(kChunk);
    }
    chunks_.back().push_back(std::move(value));
    ++size_;
  }

  // Moves what follows [first, last) down over it; answers the iterator to
  // the value that followed `last`.
  iterator erase(const_iterator first, const_iterator last) {
    const size_t from = first.index_;
    const size_t count = last.index_ - from;
    if (count == 0) return iterator(this, from);
    for (size_t i = last.index_; i < size_; ++i) (*this)[i - count] = std::move((*this)[i]);
    for (size_t i = 0; i < count; ++i) popBack_();
    return iterator(this, from);
  }
  iterator erase(const_iterator at) { return erase(at, std::next(at)); }

  void swap(ChunkedArray& other) noexcept {
    chunks_.swap(other.chunks_);
    std::swap(size_, other.size_);
  }

 private:
  void popBack_() {
    chunks_.back().pop_back();
    if (chunks_.back().empty()) chunks_.pop_back();
    --size_;
  }

  std::vector<std::vector<T>> chunks_;
  size_t size_ = 0;
};
