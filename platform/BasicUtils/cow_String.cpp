#include "platform/BasicUtils/cow_String.h"

#include <algorithm>
#include <new>

cow_String::Body const* cow_String::MakeBody(std::string_view text) {
  auto* const body = new (::operator new(sizeof(Body) + text.size() + 1)) Body;
  body->size = text.size();
  body->Retain();
  char* const characters = reinterpret_cast<char*>(body + 1);
  *std::copy(text.begin(), text.end(), characters) = '\0';
  return body;
}

void cow_String::DestroyBody(Body const* body) noexcept {
  body->~Body();
  ::operator delete(const_cast<Body*>(body));
}
