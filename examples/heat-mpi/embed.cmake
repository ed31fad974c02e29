# Writes the text file INPUT as the C string NAME into the header OUTPUT.
file(READ "${INPUT}" text HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," text "${text}")
string(REGEX REPLACE "('.x0a',)" "\\1\n    " text "${text}")
file(WRITE "${OUTPUT}" "static char const ${NAME}[] = {\n    ${text}0};\n")
