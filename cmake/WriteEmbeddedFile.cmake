# Run by ostrel_embed_assets at build time: INPUT, OUTPUT (without extension), CONSTANT, NAME.
file(READ "${INPUT}" bytes HEX)
string(LENGTH "${bytes}" length)
math(EXPR size "${length} / 2")
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE "${OUTPUT}.h.new" "#pragma once

#include <cstddef>

namespace Ostrel::Detail::Assets {
extern const unsigned char ${CONSTANT}[];
extern const std::size_t ${CONSTANT}_SIZE;
} // namespace Ostrel::Detail::Assets
")
file(WRITE "${OUTPUT}.cpp" "#include \"${NAME}.h\"

namespace Ostrel::Detail::Assets {
alignas(8) const unsigned char ${CONSTANT}[] = {
${bytes}
};
const std::size_t ${CONSTANT}_SIZE = ${size};
} // namespace Ostrel::Detail::Assets
")
# An unchanged header keeps its time, so that what includes it is not built again.
file(COPY_FILE "${OUTPUT}.h.new" "${OUTPUT}.h" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.h.new")
