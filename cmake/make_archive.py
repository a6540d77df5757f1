"""Makes a ZIP archive of files of the current folder: make_archive.py ARCHIVE FILE…

The order, the times and the modes of the members are fixed, so that equal files make an equal archive. The archives of
"cmake -E tar" contain the times at which the files were read.
"""

import sys
import zipfile

with zipfile.ZipFile(sys.argv[1], "w") as archive:
    for name in sys.argv[2:]:
        member = zipfile.ZipInfo(name, (2000, 1, 1, 0, 0, 0))
        member.compress_type = zipfile.ZIP_DEFLATED
        member.external_attr = 0o100644 << 16
        with open(name, "rb") as file:
            archive.writestr(member, file.read())
