#include "platform/BasicUtils/cls_Object.h"

#include <string>

#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Visitor.h"
#include "platform/BasicUtils/nex_Exception.h"

cls_Object::~cls_Object() = default;
cls_WriteVisitor::~cls_WriteVisitor() = default;
cls_ReadVisitor::~cls_ReadVisitor() = default;

void cls_Object::RefuseValue(std::string_view name, cls_MemberText const&, std::string_view expected) const {
  nex_Exception::Throw(nex_TextException("Invalid value for \"" + std::string(name) + "\": expected " + std::string(expected) + "."),
                       "platform/BasicUtils/cls_Object", __LINE__);
}

void cls_RefuseUnknownMember(std::string_view name, std::string_view known) {
  nex_Exception::Throw(nex_TextException("There is no member \"" + std::string(name) + "\": expected one of " + std::string(known) + "."),
                       "platform/BasicUtils/cls_Object", __LINE__);
}
