provider=14-7101
start=10/1/1998
end=9/30/1999
name='Cedar Falls Home Health'
