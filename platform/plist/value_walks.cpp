// What visits all of a value: each keeps its own stack.
#include "platform/plist/value.h"

namespace plist {
namespace {

struct CopyStep {
  const Value* from;
  Value* to;
};

struct CompareStep {
  const Value* a;
  const Value* b;
};

bool isUnstorable(const Value& value) {
  return value.isNothing() || value.uid() || value.set();
}

}  // namespace

void Value::freeMembers() {
  // Leaves are freed where they are; only a container among the members needs a place on the stack.
  const auto trim = [](Value& container) -> Value* {
    if (auto* entries = container.dictionary() ? &container.dictionary()->entries_ : nullptr) {
      while (!entries->empty() && !entries->back().value.isContainer()) entries->pop_back();
      return entries->empty() ? nullptr : &entries->back().value;
    }
    Array& values = const_cast<Array&>(*container.members());
    while (!values.empty() && !values.back().isContainer()) values.pop_back();
    return values.empty() ? nullptr : &values.back();
  };
  if (!trim(*this)) return;
  std::vector<Value> open;
  for (Value* top = this;;) {
    if (Value* member = trim(*top)) {
      Value nested(std::move(*member));
      *member = Value();
      open.push_back(std::move(nested));
    } else if (top == this) {
      return;
    } else {
      open.pop_back();
    }
    top = open.empty() ? this : &open.back();
  }
}

Value::Value(const Value& other) {
  if (other.isContainer())
    copyMembers(other);
  else
    state_ = other.state_;
}

Value& Value::operator=(const Value& other) {
  return *this = Value(other);
}

Value& Value::operator=(Value&& other) noexcept {
  auto state = std::move(other.state_);  // other may be a member of this
  if (isContainer()) freeMembers();
  state_ = std::move(state);
  return *this;
}

void Value::copyMembers(const Value& other) {
  std::vector<CopyStep> pending = {{&other, this}};
  const auto copyInto = [&pending](const Value& from, Value& to) {
    if (from.isContainer())
      pending.push_back({&from, &to});
    else
      to.state_ = from.state_;
  };
  while (!pending.empty()) {
    const auto [from, to] = pending.back();
    pending.pop_back();
    if (const Dictionary* source = from->dictionary()) {
      auto& copy = to->become<Dictionary>();
      copy.reserve(source->size());
      for (const auto& entry : *source) copyInto(entry.value, *copy.append(entry.key));
      continue;
    }
    Array& copy = from->set() ? to->become<Set>().members : to->become<Array>();
    copy.resize(from->members()->size());
    for (std::size_t i = 0; i < copy.size(); ++i) copyInto((*from->members())[i], copy[i]);
  }
}

bool operator==(const Value& a, const Value& b) {
  std::vector<CompareStep> pending;
  const auto differ = [&pending](const Value& x, const Value& y) {
    if (x.kind() != y.kind()) return true;
    if (!x.isContainer()) return !x.equalLeaf(y);
    pending.push_back({&x, &y});
    return false;
  };
  if (differ(a, b)) return false;
  while (!pending.empty()) {
    const auto [x, y] = pending.back();
    pending.pop_back();
    if (const Dictionary* entries = x->dictionary()) {
      if (entries->size() != y->dictionary()->size()) return false;
      for (const auto& entry : *entries) {
        const Value* match = y->dictionary()->find(entry.key);
        if (!match || differ(entry.value, *match)) return false;
      }
      continue;
    }
    const Array &left = *x->members(), &right = *y->members();
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i)
      if (differ(left[i], right[i])) return false;
  }
  return true;
}

std::optional<Value> storable(Value value) {
  if (isUnstorable(value)) return {};
  std::vector<Value*> open = {&value};
  while (!open.empty()) {
    Value& top = *open.back();
    open.pop_back();
    if (Array* members = top.array()) {
      std::erase_if(*members, isUnstorable);
      for (Value& member : *members)
        if (member.isContainer()) open.push_back(&member);
    } else if (Dictionary* entries = top.dictionary()) {
      entries->removeIf(isUnstorable);
      for (const auto& entry : *entries)
        if (entry.value.isContainer()) open.push_back(entries->find(entry.key));
    }
  }
  return value;
}

}  // namespace plist
