@echo off
rem Takes back what register.cmd did. Ends with 0 when nothing is registered any more.
setlocal
set "tools=%SystemRoot%\SysWOW64"
if not exist "%tools%\regsvr32.exe" set "tools=%SystemRoot%\System32"
set "dll=%~dp0SQLTImpT.dll"

"%tools%\regsvr32.exe" /s /u "%dll%"
if errorlevel 1 goto failed
echo No longer registered: "%dll%"
echo The tasks' settings are still in the registry; INSTALL.txt says where.
exit /b 0

:failed
echo Could not take back the registration of "%dll%". Run this as an administrator.
exit /b 1
