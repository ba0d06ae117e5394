// How a text of a text pane looks, for those who do not see it.
#pragma once

#include "view/reading_look.h"
#include "view/text_pane.h"

CharacterLook CharacterLookAt(TextPane& pane, TextPos position);
ParagraphLook ParagraphLookAt(TextPane& pane, TextPos position);
