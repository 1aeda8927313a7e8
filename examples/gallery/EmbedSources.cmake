# Writes the sources in FOLDER as string literals into OUTPUT, see PageCode.h.
file(GLOB sources ${FOLDER}/*.cpp)
set(entries)
foreach(source IN LISTS sources)
    get_filename_component(name ${source} NAME_WE)
    file(READ ${source} text)
    string(APPEND entries "    {\"${name}\", R\"~~~~(${text})~~~~\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"examples/gallery/PageCode.h\"\n\n"
     "namespace gallery {\n\nPageSource const pageSources[] = {\n${entries}    {nullptr, nullptr}};\n\n"
     "} // namespace gallery\n")
