#pragma once

#include "jet/value.h"

namespace jet::encode {

// A text in the form that can be stored as it is: a leading byte order mark, which would be read as the sign
// of a compressed text, is dropped.
Text storableText(Text text);

// Appends a text's stored form: compressed where the column allows it and the text is worth it, else UTF-16.
void appendStoredText(Bytes& target, const Text& text, bool mayCompress);

}  // namespace jet::encode
