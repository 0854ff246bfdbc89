@echo off
rem Shows the program on a sample database: makes the database if it is not there, registers the
rem reference session server for this user, opens a session for Admin and starts the program on it.
rem
rem Every file is named in full: the current folder may be anything, and a share cannot be one at all.
setlocal EnableExtensions DisableDelayedExpansion
set "HERE=%~dp0"
set "PRIVATE=%LOCALAPPDATA%\User Administration"

rem The database lies beside this file where that can be written, else with the user's own data: of a
rem share, because several users at a time and its locks would spoil it, and of what an
rem installer put here, because only an administrator writes there, or the next removal would.
set "VARDEX_HOME=%HERE%sample"
if "@PLACE@"=="private" goto private
if "%HERE:~0,2%"=="\\" goto private
if not exist "%VARDEX_HOME%\" mkdir "%VARDEX_HOME%" 2>nul
mkdir "%VARDEX_HOME%\try" 2>nul
if not exist "%VARDEX_HOME%\try\" goto private
rmdir "%VARDEX_HOME%\try"
goto sample

:private
set "VARDEX_HOME=%PRIVATE%\sample"
set "STEP=the folder of the sample database could not be made"
if not exist "%VARDEX_HOME%\" mkdir "%VARDEX_HOME%"
if not exist "%VARDEX_HOME%\" goto failed

rem The mark is set last, so that a database that was not finished is made again.
:sample
if exist "%VARDEX_HOME%\complete" goto register
set "STEP=the sample database could not be made"
"%HERE%vardexctl.exe" create-database --source sample --file "%VARDEX_HOME%\sample.db" --force
if errorlevel 1 goto failed
"%HERE%vardexctl.exe" fill-sample --source sample
if errorlevel 1 goto failed
echo complete>"%VARDEX_HOME%\complete"

:register
set "STEP=the session server could not be registered"
"%HERE%vardexctl.exe" register --user
if errorlevel 1 goto failed

rem By way of a file: a program's name in a "for /f" would be read once more, with its & and !.
set "STEP=no session could be opened; if this folder was moved, delete its folder sample"
set "SESSION="
"%HERE%vardexctl.exe" open-session --source sample --user Admin --password Vardex-2026 >"%VARDEX_HOME%\session"
if errorlevel 1 goto failed
set /p SESSION=<"%VARDEX_HOME%\session"
del "%VARDEX_HOME%\session"
if not defined SESSION goto failed

start "" "%HERE%uadmin.exe" %SESSION%
exit /b 0

:failed
if exist "%VARDEX_HOME%\session" del "%VARDEX_HOME%\session"
echo.
echo try-me: %STEP%.
pause
exit /b 1
