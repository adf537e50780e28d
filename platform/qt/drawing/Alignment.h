#pragma once

#include <QtCore/Qt>

#include "platform/Controls.h"

inline Qt::Alignment Horizontally(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::Left:
            return Qt::AlignLeft;
        case TextAlignment::Centre:
            return Qt::AlignHCenter;
        case TextAlignment::Right:
            return Qt::AlignRight;
    }
    return {};
}
