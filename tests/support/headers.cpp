// No code of its own: it is compiled for the precompiled headers beside it.
