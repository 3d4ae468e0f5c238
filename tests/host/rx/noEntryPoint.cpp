// Nothing of its own: the entry point that a look-up finds must not be another library's.
int aSymbolOfItsOwn = 1;
