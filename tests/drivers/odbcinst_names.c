/* What the driver takes from libodbcinst.so.2, to link it for a system that isn't this one. */
void SQLGetPrivateProfileString(void);
void SQLGetPrivateProfileString(void) {}
