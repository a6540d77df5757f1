# Writes the rows of the table of character references: cmake -DSOURCE=entities.txt -DTABLE=FILE -P GenerateEntities.cmake
# A row is {name, first character, second character or 0, whether the semicolon is optional}.
file(READ ${SOURCE} rows)
string(REGEX REPLACE "#[^\n]*\n" "" rows "${rows}")
set(name "([A-Za-z0-9]+)")
set(character "U\\+([0-9A-F]+)")
set(optional "( optional|)")
string(REGEX REPLACE "${name} ${character} ${character}${optional}\n" "{\"\\1\", 0x\\2, 0x\\3, false\\4},\n" rows "${rows}")
string(REGEX REPLACE "${name} ${character}${optional}\n" "{\"\\1\", 0x\\2, 0, false\\3},\n" rows "${rows}")
string(REPLACE "false optional" "true" rows "${rows}")
file(WRITE ${TABLE} "${rows}")
