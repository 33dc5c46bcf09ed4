#pragma once

// The iterator in the signature of find_best_match(). It lets that function be compiled once,
// whatever container the caller has.

#include <memory>
#include <utility>
#include <vector>

namespace stratum2 {

/// A forward iterator over values of `T` that hides the type of the container.
///
/// An iterator made from two others refers to their range, which must outlive the iterator. An
/// iterator made from a vector owns the vector and shares it with its copies. Copies advance
/// independently. A default-constructed iterator has no values.
///
/// Part of the layer's interface: find_best_match() takes the candidates and returns the best
/// matches in this form.
template <class T>
class generic_iterator_t {
 public:
  generic_iterator_t() = default;
  template <class Iterator>
  generic_iterator_t(Iterator first, Iterator last)
      : m_walk(std::make_unique<range_walk_t<Iterator>>(std::move(first), std::move(last))) {}
  explicit generic_iterator_t(std::vector<T> values)
      : m_walk(std::make_unique<vector_walk_t>(std::move(values))) {}
  generic_iterator_t(const generic_iterator_t& other)
      : m_walk(other.m_walk != nullptr ? other.m_walk->clone() : nullptr) {}
  generic_iterator_t(generic_iterator_t&&) noexcept = default;
  generic_iterator_t& operator=(generic_iterator_t other) noexcept {
    m_walk = std::move(other.m_walk);
    return *this;
  }
  ~generic_iterator_t() = default;

  /// Whether a value is left. Dereference or advance the iterator only if there is one.
  explicit operator bool() const { return m_walk != nullptr && !m_walk->at_end(); }
  const T& operator*() const { return m_walk->value(); }
  const T* operator->() const { return &m_walk->value(); }
  generic_iterator_t& operator++() {
    m_walk->advance();
    return *this;
  }

 private:
  struct walk_t {
    virtual ~walk_t() = default;
    virtual std::unique_ptr<walk_t> clone() const = 0;
    virtual bool at_end() const = 0;
    virtual const T& value() const = 0;
    virtual void advance() = 0;
  };

  template <class Iterator>
  struct range_walk_t final : walk_t {
    range_walk_t(Iterator first, Iterator last)
        : m_current(std::move(first)), m_last(std::move(last)) {}
    std::unique_ptr<walk_t> clone() const override { return std::make_unique<range_walk_t>(*this); }
    bool at_end() const override { return m_current == m_last; }
    const T& value() const override { return *m_current; }
    void advance() override { ++m_current; }

    Iterator m_current;
    Iterator m_last;
  };

  struct vector_walk_t final : walk_t {
    explicit vector_walk_t(std::vector<T> values)
        : m_values(std::make_shared<const std::vector<T>>(std::move(values))) {}
    std::unique_ptr<walk_t> clone() const override {
      return std::make_unique<vector_walk_t>(*this);
    }
    bool at_end() const override { return m_index == m_values->size(); }
    const T& value() const override { return (*m_values)[m_index]; }
    void advance() override { ++m_index; }

    std::shared_ptr<const std::vector<T>> m_values;
    std::size_t m_index = 0;
  };

  std::unique_ptr<walk_t> m_walk;
};

}  // namespace stratum2
