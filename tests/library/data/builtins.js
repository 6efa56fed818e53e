function ROUND(num, dec)
/**
 * Rounds a float
 * \param num The value to round
 * \param dec The number of decimal digits to round to.
 * \return The rounded value
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return num.toFixed(Math.abs(dec));}
function LOG(number, base)
/**
 * Natural logarithm
 * \param number The value to calculate the logarithm for
 * \param base (optional) The logarithmic base to use (defaults to 'e' and so to the natural logarithm).
 * \return The logarithm of arg to base, if given, or the natural logarithm.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
base=(base)?base:Math.E;return (Math.log(number)/Math.log(base));}
function TRUNCATE(number, digits)
/**
 * Truncate a number
 * \param number The value to truncate
 * \param digits The number of decimal digits to truncate to.
 * \return The truncated value
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
digits=Math.abs(digits);var strNumber=String(number);var index=strNumber.indexOf('.');if(index==-1){return number;}else{return Number(strNumber.substr(0,index+digits+1));}}
function FRAC(number)
/**
 * Get the decimal of number
 * \param number The value to get the decimal
 * \return The decimal of number
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
var strNumber=String(number);var index=strNumber.indexOf('.');if(index==-1){return 0;}else{var negativSign=(strNumber[0]=='-')?'-':'';return Number(negativSign+'0.'+strNumber.substring(index+1));}}
function EVEN(number)
/**
 * Check if number is even
 * \param number The value to check
 * \return True if even else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return (number%2 == 0) ? true : false;}
function ODD(number)
/**
 * Check if number is odd
 * \param number The value to check
 * \return True if odd else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return (String(number).indexOf('.')==-1)?!EVEN(number):false;}
function SIGN(number)
/**
 * Get the sign of number
 * \param number The value to get the sign
 * \return 0 if number == 0; -1 if number is negative; else 1
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
if(number<0)return -1;else if(number == 0)return 0;else return 1;}
function DEGREES(rad)
/**
 * Convert radians to degrees
 * \param rad The angle value in radians
 * \return The angle value in degrees
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return (180 * rad / Math.PI);}
function RADIANS(deg)
/**
 * Convert degrees to radians
 * \param deg The angle value in degrees
 * \return The angle value in radians
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return Math.PI*deg/180;}
function SQRT(x)
/**
 * Return the square root of a number
 * \param x A number
 * \return Return the square root of a number
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return Math.sqrt(x);}
function LOG10(x)
/**
 * Returns the base 10 logarithm of a number
 * \param x A number
 * \return Returns the base 10 logarithm of a number
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return LOG(x, 10);}
function ANTILOG(x)
/**
 * Returns the antilog of a number
 * \param x A number
 * \return Returns the antilog of a number
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return Math.pow(10, x);}
function POWER(base, exponent)
/**
 * Function returns the base to the exponent power
 * \param base The base number.
 * \param exponent The exponent used to raise the base.
 * \return A number representing the given base taken to the power of the given exponent.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return Math.pow(base, exponent);}
function EXP(x)
/**
 * Function returns exponetial of a number
 * \param x a number.
 * \return A number representing e^x, where e is Euler's number and x is the argument.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return Math.exp(x);}
function LTRIM(str)
/**
 * Strip whitespace from the beginning of a string
 * \param str The string that will be trimmed.
 * \return The trimmed string. 
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
  return str.ltrim();}
function RTRIM(str)
/**
 * Strip whitespace from the end of a string
 * \param str The string that will be trimmed.
 * \return The trimmed string. 
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return str.rtrim();}
function ALLTRIM(str)
/**
 * Strip whitespace from the beginning and end of a string
 * \param str The string that will be trimmed.
 * \return The trimmed string. 
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return str.trim();}
function STR(num, n2, n3)
/**
 * Format a float (with spaces) in fixed length with a fixed precision
 * \param num The float you want to format
 * \param n2 (optional)  The length of output string. Default value: 10
 * \param n3 (optional)  The number of decimal digits to truncate to.Default value: 0
 * \return Your formatted float
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
n2=(n2)?n2:10;n3=(n3)?n3:0;num=TRUNCATE(num,n3);var strNum=String(num);var space='';for(var i=0;i<n2-strNum.length;i++)space+=' ';return space+strNum;}
function STRZ(num, n2, n3)
/**
 * Format a float (with 0) in fixed length with a fixed precision
 * \param num The float you want to format
 * \param n2 (optional) The length of output string. Default value: 10
 * \param n3 (optional) The number of decimal digits to truncate to. Default value: 0
 * \return Your formatted float
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
n2=(n2)?n2:10;n3=(n3)?n3:0;num=TRUNCATE(num,n3);var strNum=String(num);var zero='';for(var i=0;i<n2-strNum.length;i++)zero+='0';return zero+strNum;}
function CONCAT(str1, str2)
/**
 * Merges several strings into one string
 * \param str1 A string
 * \param str2 Another string
 * \return The string which contains merged strings
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return String(str1)+String(str2);}
function REPEAT(c1, n1)
/**
 * Create a string with c1 repeated n1 times 
 * \param c1 A string you want to repeat
 * \param n1 Number of repeat
 * \return The string with c1 repeated n1 times
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
if(typeof(n1)!='number')return undefined;c1=String(c1);var tmp='';for(var i=0;i<n1;i++)tmp+=c1;return tmp;}
function SPACE(nbSpace)
/**
 * Create a string with spaces repeated nbSpace times 
 * \param nbSpace number of spaces
 * \return The string with spaces repeated nbSpace times
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
var str='';for(var i=0;i<nbSpace;i++)str+=' ';return str;}
function VAL(str)
/**
 * Extract the first number found in str string
 * \param str string which will extract a number
 * \return The first number found
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
str = String(str);var match = str.match(/-?\d+\.?\d*/);if(match==null)return str;else return parseFloat(match[0], 10);}
function CHAR(ascii)
/**
 * Returns a one-character string containing the character specified by ascii.
 * \param ascii The ascii code
 * \return Returns the specified character.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return String.fromCharCode(ascii);}
function RPAD(c1, n1)
/**
 * Return c1 with n1 length adjusted by adding to the need of space
 * \param c1 The string you want to format
 * \param n1 Size of output string
 * \return Return a string adjusted
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);var diff=c1.length;for(var i=0;i<n1-diff;i++)c1+=' ';return c1;}
function LEFT(str, n1)
/**
 * Extracts the leftmost n1 characters from this str String and returns a copy of the extracted substring.
 * \param str The string you want to extract
 * \param n1 The number of characters to extract from str
 * \return A string containing a copy of the specified range of characters.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return str.left(n1);}
function RIGHT(str, n1)
/**
 * Extracts the last (that is, rightmost) n1 characters from str and returns a copy of the extracted substring.
 * \param str The string you want to extract
 * \param n1 The number of characters to extract from str
 * \return A string containing a copy of the specified range of characters.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return str.right(n1);}
function SUBSTR(str, start, nCount)
/**
 * Returns the portion of string specified by the start and length parameters. 
 * \param str The input string. Must be one character or longer.
 * \param start The zero-based index of the first character in this string that is to be included in the extracted substring.
 * \param nCount The number of characters to extract from this string
 * \return A string containing a copy of the specified range of characters.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
str=String(str);if(nCount)return str.substr(start,nCount);else return str.substr(start);}
function LOCATE(c1, c2, n1)
/**
 * Find the numeric position of the first occurrence of c2 in the c1 string.
 * \param c1 The string to search in.
 * \param c2 The zero-based index of the first character in this string that is to be included in the extracted substring.
 * \param n1 (optional) If specified, search will start this number of characters counted from the beginning of the string.Default value 0
 * \return Returns the position of where c2 exists relative to the beginning of c1 string. -1 if not found
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
n1=(n1)?n1:0;return c1.indexOf(c2,n1);}
function OCCURS(c1, c2)
/**
 * Count the number of times a character expression occurs within another character expression (case sensitive).
 * \param c1 Specifies the string searched
 * \param c2 The string to search in.
 * \return Return the number of occurrences
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c2=String(c2);return c2.split(c1).length-1;}
function IOCCURS(c1, c2)
/**
 * Count the number of times a character expression occurs within another character expression (case insensitive).
 * \param c1 Specifies the string searched
 * \param c2 The string to search in.
 * \return Return the number of occurrences
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1).toLowerCase();c2=String(c2).toLowerCase();return OCCURS(c1,c2);}
function ISALPHA(c1)
/**
 * Checks if the first character of c1 is an alphabetic letter
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is an alphabetic letter else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[a-zA-Z]/)==-1)?false:true;}
function ISUPPER(c1)
/**
 * Checks if the first character of c1 is uppercase letter
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is uppercase letter else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[A-Z]/)==-1)?false:true;}
function ISLOWER(c1)
/**
 * Checks if the first character of c1 is lowercase letter
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is lowercase letter else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[a-z]/)==-1)?false:true;}
function ISDIGIT(c1)
/**
 * Checks if the first character of c1 is a digit
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is a digit else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[0-9]/)==-1)?false:true;}
function ISXDIGIT(c1)
/**
 * Checks if the first character of c1 is a hexadecimal digit
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is a hexadecimal digit else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[0-9a-fA-F]/)==-1)?false:true;}
function ISSPACE(c1)
/**
 * Checks if the first character of c1 is a space character
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is a space character else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/\s/)==-1)?false:true;}
function ISGRAPH(c1)
/**
 * Checks if the first character of c1 is a printable character other than space
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is a printable character other than space else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);var charCode=c1.charCodeAt(0);return((charCode>32) && (charCode<127));}
function ISALNUM(c1)
/**
 * Checks if the first character of c1 is a an alphanumeric character
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is an alphanumeric character
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[a-zA-Z0-9]/)==-1)?false:true;}
function ISPRINT(c1)
/**
 * Checks if the first character of c1 is an printable character (character code between 0x20 and 0x7e)
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is an printable character
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
var charCode=String(c1).charCodeAt(0);return (charCode>=0x20 && charCode<=0x7e);}
function ISPUNCT(c1)
/**
 * Checks if the first character of c1 is an printable character and it is not a space or an alphanumeric character
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is an printable character and it is not a space or an alphanumeric character
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return (ISPRINT(c1) && !ISSPACE(c1) && !ISALNUM(c1));}
function ISCNTRL(c1)
/**
 * Checks if the first character of c1 is a control character
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is a control character (char code between 0x00 and 0x1f plus 0x7f)
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);var charCode=c1.charCodeAt(0);return (((charCode >= 0x00) && (charCode <  0x1f)) ||((charCode == 0x7f)));}
function ISASCII(c1)
/**
 * Checks if the first character of c1 is an ASCII character
 * \param c1 The string to search in.
 * \return Return true if the first character of c1 is an ASCII character (char code between 0 and 128)
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);var charCode=c1.charCodeAt(0);return((charCode>-1) && (charCode<128));}
function REPLACE(str, searchvalue, with_this)
/**
 * This function returns a string with all occurrences of searchvalue in str replaced with the given replace value. 
 * \param str The string to replace in.
 * \param searchvalue The value, or regular expression, that will be replaced by the new value
 * \param with_this The value to replace the searchvalue with.
 * \return Returns a string with the replaced values. 
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return str.split(searchvalue).join(with_this);}
function AT(c1, c2, n1)
/**
 * Searches a character expression for the occurrence of another character expression (case sensitive)
 * \param c1 The string to search in.
 * \param c2 The searched value
 * \param n1 (optional) Specifies which occurrence, first, second, third, and so on, of c1 to search for in c1. Default value 1
 * \return Returns an integer indicating the position of the first character for the searched character expression or -1 if not found
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
n1=(n1)?n1:1;if(n1<0)return -1;c1=String(c1);c2=String(c2);var index=-1;var nbOccur=1;while(true){index=LOCATE(c1,c2,index+1);if(index == -1){return -1;}else{if(n1==nbOccur){return index;}else{nbOccur++;}}}}
function ATC(c1, c2, n1)
/**
 * Searches a character expression for the occurrence of another character expression (case insensitive)
 * \param c1 The string to search in.
 * \param c2 The searched value
 * \param n1 (optional) Specifies which occurrence, first, second, third, and so on, of c1 to search for in c1. Default value 1
 * \return Returns an integer indicating the position of the first character for the searched character expression or -1 if not found
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return AT(String(c1).toLowerCase(),String(c2).toLowerCase(),n1);}
function RAT(c1, c2, n1)
/**
 * Searches a character expression for the occurrence of another character expression in reverse order (Reverse AT) (case sensitive)
 * \param c1 The string to search in.
 * \param c2 The searched value
 * \param n1 (optional) Specifies which occurrence, first, second, third, and so on, of c1 to search for in c1. Default value 1
 * \return Returns an integer indicating the position of the first character for the searched character expression or -1 if not found
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
c1=String(c1);c2=String(c2);n1=(n1)?n1:1;if(n1<0)return -1;var nbFound=0;while(c1.length>0){var index=c1.lastIndexOf(c2);if(index==-1){return -1;}else{nbFound++;if(nbFound==n1){return index;}else{c1=c1.substring(0,index);}}}return -1;}
function RATC(c1, c2, n1)
/**
 * Searches a character expression for the occurrence of another character expression in reverse order (Reverse ATC) (case insensitive)
 * \param c1 The string to search in.
 * \param c2 The searched value
 * \param n1 (optional) Specifies which occurrence, first, second, third, and so on, of c1 to search for in c1. Default value 1
 * \return Returns an integer indicating the position of the first character for the searched character expression or -1 if not found
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return RAT(String(c1).toLowerCase(),String(c2).toLowerCase(),n1);}
function INSERT(str, start, length, replaceWith)
/**
 * Inserts a string into another string. It deletes a specified length of characters in the first string at the start position and then inserts the second string into the first string at the start position.
 * \param str The string to replace in.
 * \param start Specifies the location to start deletion and insertion
 * \param length Specifies the number of characters to delete
 * \param replaceWith Expression to insert
 * \return Returns a string with replaceWith inserted into str
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
str=String(str);replaceWith=String(replaceWith);var before=str.slice(0,start);var after=str.slice(start+length);return before+replaceWith+after;}
function CHRTRAN(Input_String, Search_Pattern, Replace_Pattern)
/**
 * Returns a character string where characters in Input_String that match those in Search_Pattern have been replaced with characters in the same position in Replace_Pattern. Case sensitive
 * \param Input_String The string to replace in.
 * \param Search_Pattern Specifies the location to start deletion and insertion
 * \param Replace_Pattern Specifies the number of characters to delete
 * \return Returns a string with all replacements
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
Input_String=String(Input_String);Search_Pattern=String(Search_Pattern);Replace_Pattern=String(Replace_Pattern);var newString='';for(var i=0;i<Input_String.length;i++){for(var j=0;j<Search_Pattern.length;j++){if(Input_String[i]==Search_Pattern[j]){newString+=(Replace_Pattern[j]==undefined)?'':Replace_Pattern[j];break;}else{if(j==Search_Pattern.length-1)newString+=Input_String[i];}}}return newString;}
function ASCII(str)
/**
 * Get the ASCII code of the first character in a given string
 * \param str The string to search in.
 * \return Returns The ASCII code of the first character
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return String(str).charCodeAt(0);}
function LOWERCASE(str)
/**
 * This method returns the value of the string converted to lowercase
 * \param str The string you want to lowercase.
 * \return The string in lowercase
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return String(str).toLowerCase();}
function UPPERCASE(str)
/**
 * This method returns the value of the string converted to uppercase
 * \param str The string you want to uppercase.
 * \return The string in uppercase
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return String(str).toUpperCase();}
function LEN(str)
/**
 * This method returns the length of string
 * \param str The string you want to get the length
 * \return The numbers of characters in a string
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return String(str).length;}
String.prototype.ltrim = function() { return this.replace(/^\s+/g, ''); };
String.prototype.rtrim = function() { return this.replace(/\s+$/g, ''); };
String.prototype.trim = function() { return this.replace(/^\s+|\s+$/g, ''); };
String.prototype.left=function(n1){return this.substr(0,n1);};
String.prototype.right=function(n1){if(n1==0)return '';return this.substr(-n1,this.length);};
oldToStringFunctionProto = Function.prototype.toString;newToStringFunctionProto = function() {return this();};Function.prototype.toString = newToStringFunctionProto;
function IIF(cond, p1, p2)
/**
 * Check cond expression and return p1 or p2
 * \param cond The value or expression that you want to test
 * \param p1 It is the value that is returned if condition evaluates to true.
 * \param p2 It is the value that is returned if condition evaluates to false.
 * \return Returns one value if a specified condition evaluates to true, or another value if it evaluates to false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return (eval(cond))? p1:p2;}
function SWITCH(value, n)
/**
 * Check cond expression and return n[value] value (unlimited arguments)
 * \param value The value or expression that you want to test
 * \param n List of values that can be returned. (unlimited arguments)
 * \return Return n[0] if value = 0 , n[1] if value = 1 , etc ...
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return arguments[Number(value)+1];}
function COND(listOfCouple)
/**
 * Evaluates a list of expressions and returns a value or an expression associated with the first expression in the list that is True. (unlimited arguments)
 * \param listOfCouple List of couple [Expression you want to evaluate , Value or expression to be returned if the corresponding expression is true] (unlimited arguments)
 * \return If argument[0] = true return argument[1] , argument[2] = true return argument[3],etc... If never true, return undefined
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
for(var i=0;i<arguments.length;i+=2)if(eval(arguments[i]))return arguments[i+1];}
function MIN(listOfValue)
/**
 * Returns the smallest values.
 * \param listOfValue All comparable values. Separated by comma
 * \return Returns the smallest values.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
var min=(isNaN(Number(arguments[0])))?arguments[0]:Number(arguments[0]);for(var i=0;i<arguments.length;i++){var tmp=(isNaN(Number(arguments[i])))?arguments[i]:Number(arguments[i]);if(min>tmp){min=tmp;}}return min;}
function MAX(listOfValue)
/**
 * Returns the biggest values.
 * \param listOfValue All comparable values. Separated by comma
 * \return Returns the biggest values.
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
var max=(isNaN(Number(arguments[0])))?arguments[0]:Number(arguments[0]);for(var i=0;i<arguments.length;i++){var tmp=(isNaN(Number(arguments[i])))?arguments[i]:Number(arguments[i]);if(max<tmp){max=tmp;}}return max;}
function BETWEEN(testValue, lowValue, hightValue)
/**
 * Determines whether the value of an expression lies between the values of two other expressions of the same data type
 * \param testValue Specifies the expression whose value BETWEEN tests
 * \param lowValue Specifies the lower value in the range BETWEEN evaluates.
 * \param hightValue Specifies the upper value in the range BETWEEN evaluates.
 * \return Return true if the value of an expression lies between the values of two other expressions.Else return false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
return (testValue>lowValue && testValue<hightValue);}
function BUMP(n1, n2, n3)
/**
 * Analyse n values and return one value
 * \param n1 A value.
 * \param n2 A value.
 * \param n3 A value.
 * \return Return n1 if n2&lt;n1&lt;n3 , n2 if n1&lt;n2 , n3 if n1&gt;n3
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
n1=(isNaN(Number(n1)))?n1:Number(n1);n2=(isNaN(Number(n2)))?n1:Number(n2);n3=(isNaN(Number(n3)))?n3:Number(n3);if(n1<n2)return n2;else if(n1>n3)return n3;else return n1;}
function INLIST(searched, listOfValue)
/**
 * Check if searched is in list of value
 * \param searched The searched value
 * \param listOfValue The list of values
 * \return Return true if searched is in list of value else false
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
for(var i=1;i<arguments.length;i++){if(searched==arguments[i]){return true;}}return false;}
function LISTFUNCT()
/**
 * Show all functions
 * \return Return basic text representation for each functions
 */{if(arguments.length == 0 && arguments.callee.length != 0) throw ReferenceError(arguments.callee.name + ' missing argument');
Function.prototype.toString = oldToStringFunctionProto;var liste='';var upperRegex=/^[^a-z]+$/;for(var funct in this){if(funct.length>1 && upperRegex.test(funct)){var functTT=String(this[funct].prototype.constructor);var functWithoutBody=functTT;if(functTT.indexOf('{')!=-1){functWithoutBody=functTT.substr(0,functTT.indexOf('{'));}var functName='';var comment='';if(functWithoutBody.indexOf(')')!=-1){functName=functWithoutBody.substr(0,functWithoutBody.indexOf(')')+1);comment=functWithoutBody.substring(functWithoutBody.indexOf(')')+1);}liste+=comment+'\r\n'+functName+'\r\n\r\n';}}Function.prototype.toString = newToStringFunctionProto;return liste;}
