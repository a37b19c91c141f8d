// Vectors and their iterators. A vector of pointers does not own its elements.

namespace std {
template <class T>
class vector {
public:
    vector();
    ZR_DESTRUCTOR(vector)
    ~vector();
    size_t size() const;
    void clear();
    void push_back(const T& value);
    %extend {
        %newobject createIter;
        HSTFwdIter<T>* createIter() const {
            using At = std::vector<T>::const_iterator;
            return new HSTFwdSTLIter<T, At>(self->begin(), self->end());
        }
    }
};
template <class T>
class vector<T*> {
public:
    vector();
    ZR_DESTRUCTOR(vector)
    ~vector();
    size_t size() const;
    void clear();
    void push_back(T* value);
    %extend {
        %newobject createIter;
        HSTFwdIter<T*>* createIter() const {
            using At = std::vector<T*>::const_iterator;
            return new HSTFwdSTLIter<T*, At>(self->begin(), self->end());
        }
    }
};
}  // namespace std

template <class T>
class HSTFwdIter {
public:
    ZR_DESTRUCTOR(HSTFwdIter)
    ~HSTFwdIter();
    bool hasNext() const;
    %extend {
        T next() {
            if (!self->hasNext()) throw std::out_of_range("the iterator has no further element");
            return self->next();
        }
    }
};
%newobject createPlatformIter;
%newobject createSystemClockIter;

%define ZR_CONTAINER(VECTOR, ITERATOR, ELEMENT...)
%template(ITERATOR) HSTFwdIter<ELEMENT>;
%template(VECTOR) std::vector<ELEMENT>;
%enddef
ZR_CONTAINER(StringVector, StringIter, std::string)
ZR_CONTAINER(TEQPlatformVector, TEQPlatformIter, HTEQPlatform*)
ZR_CONTAINER(TEQHardwarePlatformVector, TEQHardwarePlatformIter, HTEQHardwarePlatform*)
ZR_CONTAINER(TEQSoftwarePlatformVector, TEQSoftwarePlatformIter, HTEQSoftwarePlatform*)
ZR_CONTAINER(TEQSystemConfigVec, TEQSystemConfigIter, HTEQSystemConfig*)
ZR_CONTAINER(TEQSystemClockVec, TEQSystemClockIter, HTEQSystemClock*)
ZR_CONTAINER(TEQProcessorGroupVec, TEQProcessorGroupIter, HTEQProcessorGroup*)
ZR_CONTAINER(TEQBootImgVec, TEQBootImgIter, HTEQBootImg*)
ZR_CONTAINER(TEQReconfigurablePartitionVec, TEQReconfigurablePartitionIter, HTEQReconfigurablePartition*)
