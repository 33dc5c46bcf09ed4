#pragma once

// Threads that do something at the same time.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <queue>
#include <thread>
#include <utility>
#include <vector>

namespace kivo_3_3::testing {

// Where a number of threads wait for each other, once.
class MeetingPoint {
 public:
  explicit MeetingPoint(int threads) : m_missing(threads) {}

  // Returns when all of the threads have called this. Spins, so that they continue at the same
  // moment. Gives up after a minute, so that a failing test does not hang.
  void meet() {
    const auto latest = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    --m_missing;
    while (m_missing > 0 && std::chrono::steady_clock::now() < latest)
      std::this_thread::yield();
  }

 private:
  std::atomic<int> m_missing;
};

// Calls act(0) to act(threads - 1), each on a thread of its own and all at the same time, and
// returns when all calls have returned.
template <class Act>
void together(int threads, Act act) {
  MeetingPoint start(threads);
  std::vector<std::thread> running;
  for (int number = 0; number < threads; ++number)
    running.emplace_back([&start, &act, number] {
      start.meet();
      act(number);
    });
  for (std::thread& thread : running)
    thread.join();
}

// Objects that one thread hands to another, first in, first out.
template <class T>
class Handover {
 public:
  void give(T object) {
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_objects.push(std::move(object));
    m_given.notify_one();
  }

  // Waits for the next object.
  T take() {
    std::unique_lock<std::mutex> guard(m_mutex);
    m_given.wait(guard, [this] { return !m_objects.empty(); });
    T object = std::move(m_objects.front());
    m_objects.pop();
    return object;
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_given;
  std::queue<T> m_objects;
};

}  // namespace kivo_3_3::testing
