// A table row laid out.
#pragma once

#include "platform/qt/text_view/block_layout.h"

BlockLayout LayOutRow(const LayoutContext& context, const TextBlock& block);
