# Turns the plain comments of a header into documentation, for doxygen (sed -E -f).

# The comment at the top is about the file.
1s|^// |/// \\file\
/// |

# Comments in front of a declaration. Rows of samples are set off by three blanks: as a block
# of code they keep their columns.
s|^( *)//$|\1///|
s|^( *)//(   +[^ ])|\1///    \2|
s|^( *)// |\1/// |

# A comment behind a field or an enumerator. Not behind a brace: that one closes a namespace.
s|([;,]) +// |\1 ///< |

# In sentences these characters stand for themselves.
/^ *\/\/\/ {1,2}[^ \\]/s|[\\@<>&#%]|\\&|g

# Within quotes doxygen takes the backslash as it is.
s|"\\\\"|"\\"|g
