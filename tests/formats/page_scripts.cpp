// Prints the links of pages for the comparison with a real browser. Reads pages from standard input, each
// after a line with its length in bytes. Writes four texts for each page (targets, texts, dates added, dates
// modified), each followed by a NUL. The pages are UTF-8; with any argument they are bytes in any encoding.
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
