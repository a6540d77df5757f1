// Tells what we find in pages, for the comparison with a real browser: reads pages from standard input, each
// after its length in bytes on a line, and writes the four texts of its links, each ended by a NUL. The pages
// are texts; with the argument "files" they are bytes in any encoding.
#include "formats/import/PageLinks.h"
#include "formats/import/TextDecoding.h"

#include <iostream>

int main(int argc, char**) {
    std::size_t size = 0;
    while (std::cin >> size && std::cin.get() == '\n') {
        std::string page(size, '\0');
        std::cin.read(page.data(), static_cast<std::streamsize>(size));
        const tabulon::DecodedText decoded =
            argc > 1 ? tabulon::decodeText(page, tabulon::TextKind::Html) : tabulon::DecodedText{page, {}};
        const auto links = tabulon::readPageLinks(decoded.text, decoded.encoding);
        if (!links) {
            std::cerr << links.error().message << '\n';
            return 1;
        }
        for (const std::string& text :
             {links->targets, links->texts, links->datesAdded, links->datesModified})
            std::cout << text << '\0';
    }
    return std::cin.eof() ? 0 : 1;
}
