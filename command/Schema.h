#pragma once

#include "platform/BasicUtils/cls_Value.h"

/// JSON Schema (draft-07) of what is read and written, from the tables of commands and of classes. It says of a text what can be said
/// without a model: which members there are, of what type, and which texts they take.
namespace gattr {

/// Of a journal as one document, and of one command, which is a line of one.
cls_Value JournalSchema();
/// Of the text form of a model.
cls_Value ModelSchema();

}  // namespace gattr
