#include "platform/BasicUtils/cow_List.h"

#include <stdexcept>
#include <string>

void cow_RefuseIndex(std::size_t index, std::size_t size) {
  throw std::out_of_range("There is no value " + std::to_string(index) + " in a sequence of " + std::to_string(size) + ".");
}
