# Writes a C++ source whose function gives the bytes of a file and their SHA-256, see headless/report/PageFiles.h:
#   cmake -D FILE=... -D OUTPUT=... -D FUNCTION=... -P EmbedFile.cmake
file(READ "${FILE}" bytes HEX)
file(SHA256 "${FILE}" hash)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
# A line of a megabyte is more than some tools read.
string(REPEAT "....." 32 line)
string(REGEX REPLACE "(${line})" "\\1\n" bytes "${bytes}")
file(WRITE "${OUTPUT}" "#include \"headless/report/PageFiles.h\"

namespace
{
constexpr unsigned char c_Bytes[] = {
${bytes}};
} // namespace

CPageFile ${FUNCTION}()
{
    return {{reinterpret_cast<const char*>(c_Bytes), sizeof(c_Bytes)}, \"${hash}\"};
}
")
