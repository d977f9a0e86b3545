#include <gtest/gtest.h>

#include "platform/uikit/controls.h"
#include "platform/uikit/view.h"

using namespace uikit;

TEST(View, IsFoundByTagDepthFirst) {
  auto root = std::make_shared<View>(), first = std::make_shared<View>(),
       deep = std::make_shared<View>(), second = std::make_shared<View>();
  deep->tag = second->tag = 7;
  root->addSubview(first);
  root->addSubview(second);
  first->addSubview(deep);
  EXPECT_EQ(root->viewWithTag(7), deep.get());
  EXPECT_EQ(root->viewWithTag(8), nullptr);
}

TEST(View, MovesToItsNewSuperview) {
  auto one = std::make_shared<View>(), two = std::make_shared<View>(),
       child = std::make_shared<View>();
  one->addSubview(child);
  two->addSubview(child);
  EXPECT_TRUE(one->subviews().empty());
  EXPECT_EQ(two->subviews().size(), 1u);
}

TEST(View, IsFreedWhenItLeavesItsOnlyHolder) {
  auto root = std::make_shared<View>();
  auto child = std::make_shared<View>();
  std::weak_ptr<View> watch = child;
  root->addSubview(std::move(child));
  watch.lock()->removeFromSuperview();
  EXPECT_TRUE(watch.expired());
}

TEST(View, OutlivesItsSuperview) {
  auto root = std::make_shared<View>(), next = std::make_shared<View>(),
       child = std::make_shared<View>();
  root->addSubview(child);
  root.reset();
  child->removeFromSuperview();
  next->addSubview(child);
  EXPECT_EQ(next->subviews().size(), 1u);
}

TEST(Slider, KeepsItsValueWithinItsRange) {
  Slider slider;
  slider.setRange(10, 20);
  EXPECT_EQ(slider.value(), 10);
  slider.setValue(30);
  EXPECT_EQ(slider.value(), 20);
}

TEST(Color, IsWrittenAsHex) {
  EXPECT_EQ(Color::fromBytes(52, 73, 94).hex(), "#34495E");
  EXPECT_EQ((Color{1, 0.5, 0, 1}).hex(), "#FF8000");
}
