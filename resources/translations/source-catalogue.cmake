# SPDX-License-Identifier: MIT
# cmake -DCATALOGUE=nubo_ja.ts -DOUTPUT=nubo_en.ts -P source-catalogue.cmake
#
# Writes the catalogue of the language that the sources are written in: each text of CATALOGUE
# translated as itself.
file(READ ${CATALOGUE} texts)
# "%n files" needs "1 file" in English too, which no source says.
if(texts MATCHES "numerus=")
    message(FATAL_ERROR "${CATALOGUE} has a plural form: English needs a translation of it.")
endif()
string(REGEX REPLACE "<TS version=\"([^\"]*)\" language=\"[^\"]*\"" "<TS version=\"\\1\" language=\"en_US\""
       texts "${texts}")
set(comment "<(comment|extracomment|translatorcomment)>[^<]*</[a-z]*>[ \n]*")
string(REGEX REPLACE
       "<source>([^<]*)</source>([ \n]*(${comment})*)<translation[^>]*>[^<]*</translation>"
       "<source>\\1</source>\\2<translation>\\1</translation>"
       texts "${texts}")
file(WRITE ${OUTPUT} "${texts}")
