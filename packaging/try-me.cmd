@echo off
rem Shows the program on a sample database: makes the database beside this file if it is not there,
rem registers the reference session server for this user, opens a session for Admin and starts the
rem program on it.
setlocal
cd /d "%~dp0"
set "VARDEX_HOME=%~dp0sample"

rem The mark is set last, so that a database that was not finished is made again.
if exist "%VARDEX_HOME%\complete" goto register
set "STEP=the sample database could not be made"
if not exist "%VARDEX_HOME%" mkdir "%VARDEX_HOME%"
vardexctl.exe create-database --source sample --file "%VARDEX_HOME%\sample.db" --force
if errorlevel 1 goto failed
vardexctl.exe fill-sample --source sample
if errorlevel 1 goto failed
echo complete>"%VARDEX_HOME%\complete"

:register
set "STEP=the session server could not be registered"
vardexctl.exe register --user
if errorlevel 1 goto failed

set "STEP=no session could be opened; if this folder was moved, delete its folder sample"
set "SESSION="
for /f "delims=" %%L in ('vardexctl.exe open-session --source sample --user Admin --password Vardex-2026') do set "SESSION=%%L"
if not defined SESSION goto failed

start "" uadmin.exe %SESSION%
exit /b 0

:failed
echo.
echo try-me: %STEP%.
pause
exit /b 1
