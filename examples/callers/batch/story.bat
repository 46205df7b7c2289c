@echo off
rem The story of one platform: slicing starts and ends, somebody measures, the toolpath side asks.
rem
rem     story.bat TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT
rem
rem SLICING is the folder that slicing has filled, MEASURED the file that a measuring run would
rem leave (empty: nobody measures), LIMIT the seconds that a call may take. Ends with 0 for a
rem coordinate system, 1 for a message in its place, 2 for a refusal, 3 for an abnormal end, 4 for
rem a call that took too long, 5 for a tool that can't be started. Needs readresult.js beside it.
setlocal
if "%~1"==":background" goto background

set "TOOL=%~1"
set "SLICING=%~2"
set "TAVEN=%~3"
set "RESULT=%~4"
set "PLATFORM=%~5"
set "MEASURED=%~6"
set "LIMIT=%~7"
if "%LIMIT%"=="" goto usage

rem A backslash in front of a closing quotation mark would swallow it.
if "%SLICING:~-1%"=="\" set "SLICING=%SLICING%\"
if "%TAVEN:~-1%"=="\" set "TAVEN=%TAVEN%\"

set OFPLATFORM="-tavenfldr:%TAVEN%" "-platform:%PLATFORM%"
set SWITCHES=-cmd:slistat -stat:started %OFPLATFORM%
call :runTool
if %CODE% gtr 1 exit /b %CODE%
echo slicing started

set SWITCHES=-cmd:slistat -stat:ended_success "-slifldr:%SLICING%" %OFPLATFORM%
call :runTool
if %CODE% gtr 1 exit /b %CODE%
if %CODE%==1 (echo slicing ended: brought in) else echo slicing ended: nothing brought in

if "%MEASURED%"=="" goto ask
copy /y "%MEASURED%" "%TAVEN%\MeasuringData_%PLATFORM%.xml" >nul
echo measured

:ask
rem After a refusal an old result would still be there.
if exist "%RESULT%" del /f "%RESULT%"
set SWITCHES=-cmd:getncs "-out:%RESULT%" %OFPLATFORM% -zoffset:0.25
call :runTool
if %CODE% gtr 1 exit /b %CODE%
if %CODE%==0 goto refused

call :readResult "%RESULT%"
echo answer: %TYPE%
echo %MESSAGE%
if not "%TYPE%"=="confirm" exit /b 1
for %%f in (NCS CS) do call :printMatrix %%f
exit /b 0

:usage
echo story.bat TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT
exit /b 64

:refused
echo refused: the report tells why
exit /b 2


rem Copy from here: runs %TOOL% with %SWITCHES% and sets CODE to 1 or 0 as the tool ended, to 3
rem after an abnormal end, 4 after LIMIT seconds, 5 if there is no tool.
rem
rem The tool runs in the background, in another call of this file, since it may show a report and
rem wait for a person. Such a report stays when the limit is over, for whoever comes by.
:runTool
if not exist "%TOOL%" goto noTool
set "CODEFILE=%TEMP%\tavenMorrel%RANDOM%%RANDOM%"
start "" /b "%ComSpec%" /d /c call "%~f0" :background
set /a LEFT=%LIMIT% + 1

:waitForTool
if exist "%CODEFILE%" goto toolEnded
set /a LEFT-=1
if %LEFT% leq 0 goto limitOver
rem A second; timeout.exe would need a console.
ping -n 2 127.0.0.1 >nul
goto waitForTool

:toolEnded
set /p CODE=<"%CODEFILE%"
del "%CODEFILE%"
if "%CODE%"=="0" exit /b
if "%CODE%"=="1" exit /b
echo abnormal end: %CODE%
set "CODE=3"
exit /b

:noTool
echo not started: %TOOL%
set "CODE=5"
exit /b

:limitOver
echo time limit: a report may be waiting for a person
set "CODE=4"
exit /b

rem The file with the exit code appears whole, under its name.
:background
"%TOOL%" %SWITCHES% <nul
>"%CODEFILE%.new" echo %errorlevel%
move /y "%CODEFILE%.new" "%CODEFILE%" >nul
exit


rem Copy this too: sets TYPE, MESSAGE, and the elements NCS00 to NCS33 and CS00 to CS33.
:readResult
set "READER=%~dp0readresult.js"
for /f "usebackq tokens=1,* delims==" %%a in (`cscript //nologo "%READER%" "%~1"`) do set "%%a=%%b"
for %%f in (NCS CS) do (
    set "%%f30=0"
    set "%%f31=0"
    set "%%f32=0"
    set "%%f33=1"
)
exit /b

:printMatrix
echo %1
for %%r in (0 1 2 3) do call echo %%%1%%r0%% %%%1%%r1%% %%%1%%r2%% %%%1%%r3%%
exit /b
