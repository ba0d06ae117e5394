// Table rows laid out.
#pragma once

#include "platform/qt/text_view/layout/block_layout.h"

BlockLayout LayOutRows(const LayoutContext& context, const TextBlock& block);
