#include "platform/FileType.h"

#include "platform/Text.h"

std::string FileType::ToString() const {
    std::string patterns;
    for (Int32 i = 1; !NthField(Extensions(), ";", i).empty(); ++i) {
        patterns += (i == 1 ? "*" : " *") + NthField(Extensions(), ";", i);
    }
    return Name() + " (" + patterns + ")";
}
