# SPDX-License-Identifier: MIT
# Makes documentation of the comments of a header, for Doxygen: of a comment above a declaration,
# and of one after it. A backslash begins a command of Doxygen's, except in an example.
/^\/\/ SPDX-/s,.*,,
/^ *\/\/ {1,4}[^ ]/s,\\,\\\\,g
s,^( *)//( |$),\1///\2,
t
s,([;\,{}] +)// ,\1///< ,
t
s,^( *[A-Za-z]+( = [^\,]*)? +)// ,\1///< ,
