#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "platform/BasicUtils/cow_Handle.h"

namespace {

/// Counts the living objects, to show what is copied and what is left behind.
struct Shape : mem_Counted {
  Shape() { ++living; }
  Shape(Shape const& other) : mem_Counted(other), area(other.area) { ++living; }
  Shape& operator=(Shape const&) = default;
  virtual ~Shape() { --living; }
  virtual std::unique_ptr<Shape> Copy() const { return std::make_unique<Shape>(*this); }

  double area = 0.0;
  static inline std::atomic<int> living{0};
};

struct Circle final : Shape {
  std::unique_ptr<Shape> Copy() const override { return std::make_unique<Circle>(*this); }
  double radius = 0.0;
};

struct Plain : mem_Counted {
  explicit Plain(int initial) : number(initial) {}
  int number;
};

struct Chain : mem_Counted {
  cow_Handle<Chain> next;
};

TEST(Handle, SharesUntilOneOfThemChanges) {
  auto first = cow_Handle<Plain>::Make(1);
  cow_Handle<Plain> second = first;
  EXPECT_TRUE(first.Same(second));
  EXPECT_EQ(first->ShareCount(), 2u);

  second.Get().number = 2;
  EXPECT_FALSE(first.Same(second));
  EXPECT_EQ(first->number, 1);
  EXPECT_EQ(second->number, 2);
  EXPECT_EQ(first->ShareCount(), 1u);
  EXPECT_EQ(second->ShareCount(), 1u);
}

TEST(Handle, ChangesInPlaceWhatItHoldsAlone) {
  auto handle = cow_Handle<Plain>::Make(1);
  Plain const* const object = handle.ConstGet();
  cow_Handle<Plain> passing = handle;
  passing.Reset();
  EXPECT_EQ(&handle.Get(), object);
}

TEST(Handle, SeparatesThroughCopyAndKeepsTheClass) {
  cow_Handle<Shape> first = cow_Handle<Circle>::Make();
  cow_Handle<Shape> second = first;
  second.Get().area = 3.0;
  EXPECT_TRUE(second.As<Circle>());
  EXPECT_EQ(first->area, 0.0);
  EXPECT_EQ(second->area, 3.0);
}

TEST(Handle, ConvertsToTheBaseAndBackByShareNotByCopy) {
  auto const circle = cow_Handle<Circle>::Make();
  cow_Handle<Shape> shape = circle;
  EXPECT_EQ(circle->ShareCount(), 2u);
  EXPECT_EQ(shape.ConstGet(), circle.ConstGet());

  cow_Handle<Circle> again = shape.As<Circle>();
  EXPECT_EQ(circle->ShareCount(), 3u);
  shape = std::move(again);
  EXPECT_FALSE(again);  // NOLINT(bugprone-use-after-move): a moved handle is null
  EXPECT_EQ(circle->ShareCount(), 2u);
  EXPECT_FALSE(cow_Handle<Shape>::Make().As<Circle>());
}

// The old head is destroyed by the assignment, and the new one is a part of it.
TEST(Handle, CanTakeAHandleFromInsideTheObjectItLetsGo) {
  auto head = cow_Handle<Chain>::Make();
  head.Get().next = cow_Handle<Chain>::Make();
  Chain const* const second = head->next.ConstGet();
  head = head->next;
  EXPECT_EQ(head.ConstGet(), second);
  EXPECT_EQ(head->ShareCount(), 1u);
}

TEST(Handle, CountsRightWhenThreadsCopyDropAndChangeAtOnce) {
  int const before = Shape::living;
  {
    auto shared = cow_Handle<Shape>::Make();
    shared.Get().area = 1.0;
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int t = 0; t < 4; ++t) {
      threads.emplace_back([own = shared, &wrong] {
        for (int i = 0; i < 5000; ++i) {
          cow_Handle<Shape> copy = own;
          if (i % 3 == 0) { copy.Get().area += 1.0; }
          if (own->area != 1.0 || copy->area != (i % 3 == 0 ? 2.0 : 1.0)) { ++wrong; }
        }
      });
    }
    for (std::thread& thread : threads) { thread.join(); }
    threads.clear();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(shared->ShareCount(), 1u);
    EXPECT_EQ(shared->area, 1.0);
  }
  EXPECT_EQ(Shape::living, before);
}

// The last two owners let go at the same time: one destroys, and whoever stays alone may change in place.
TEST(Handle, HandsOverTheLastShareBetweenThreads) {
  int const before = Shape::living;
  for (int i = 0; i < 500; ++i) {
    auto here = cow_Handle<Shape>::Make();
    std::thread other([there = here]() mutable {
      there.Get().area += 1.0;
      there.Reset();
    });
    here.Get().area += 1.0;
    EXPECT_EQ(here->area, 1.0);
    other.join();
  }
  EXPECT_EQ(Shape::living, before);
}

}  // namespace
