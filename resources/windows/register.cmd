@echo off
rem Registers SQLTImpT.dll, which lies beside this file: for all users when an administrator runs
rem it ("Run as administrator"), else for the present user alone. Ends with 0 when that is done.
setlocal
set "tools=%SystemRoot%\SysWOW64"
if not exist "%tools%\regsvr32.exe" set "tools=%SystemRoot%\System32"
set "dll=%~dp0SQLTImpT.dll"

"%tools%\regsvr32.exe" /s "%dll%"
if errorlevel 1 goto failed
"%tools%\reg.exe" query HKLM\SOFTWARE\Classes\SQLTImpT.ImpTable >nul 2>nul
if errorlevel 1 goto user
echo Registered for all users: "%dll%"
echo Leave it there as long as it is registered.
exit /b 0

:user
echo Registered for you alone: "%dll%"
echo Run this again as an administrator to register it for all users.
exit /b 0

:failed
echo Could not register "%dll%". INSTALL.txt says what it needs.
exit /b 1
