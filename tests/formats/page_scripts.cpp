// Tells what we find in pages, for the comparison with a real browser: reads pages from standard input, each
// after its length in bytes on a line, and writes the four texts of its links, each ended by a NUL.
#include "formats/import/PageLinks.h"

#include <iostream>

int main() {
    std::size_t size = 0;
    while (std::cin >> size && std::cin.get() == '\n') {
        std::string page(size, '\0');
        std::cin.read(page.data(), static_cast<std::streamsize>(size));
        const auto links = tabulon::readPageLinks(page);
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
