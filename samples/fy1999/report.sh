provider=14-7100
start=10/1/1998
end=9/30/1999
name='Prairie Hearth Home Health Agency'
